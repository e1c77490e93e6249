// SPDX-License-Identifier: MIT
#include "interchange/exported_file.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <system_error>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

fs::path Beside(const fs::path& place) {
  return fs::absolute(place).parent_path() /
         (".part-" + std::to_string(getpid()) + "-" + place.filename().string());
}

/// From another file system, through a copy beside the place.
void Move_Copied(const fs::path& from, const fs::path& place, std::error_code& error) {
  const fs::path beside = Beside(place);
  fs::copy_file(from, beside, fs::copy_options::overwrite_existing, error);
  if (!error) fs::rename(beside, place, error);
  std::error_code ignored;
  if (error) fs::remove(beside, ignored);
}

}  // namespace

ExportedFile::ExportedFile(const fs::path& place, const fs::path& site) : place_(place) {
  const fs::path folder = fs::absolute(place).parent_path();
  if (!fs::is_directory(folder)) {
    throw Refused(place.string() + ": the folder " + folder.string() + " does not exist");
  }
  if (!site.empty()) within_.emplace(fs::absolute(site));
  const bool is_within = within_ && !within_->Folder().empty();
  partial_ = is_within ? within_->Folder() / place.filename() : Beside(place);
}

ExportedFile::~ExportedFile() {
  std::error_code ignored;
  fs::remove(partial_, ignored);
}

void ExportedFile::Commit() {
  std::error_code error;
  fs::rename(partial_, place_, error);
  if (error == std::errc::cross_device_link) {
    error.clear();
    Move_Copied(partial_, place_, error);
  }
  if (error) throw FailedOnTheWay(place_.string() + ": " + error.message());
}

std::string Lower_Ending(const fs::path& file) {
  std::string ending = file.extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending;
}

}  // namespace sylvomex
