// SPDX-License-Identifier: MIT
#include "interchange/exported_file.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <system_error>

#include "interchange/failures.h"

namespace sylvomex {

namespace fs = std::filesystem;

ExportedFile::ExportedFile(const fs::path& place) : place_(place) {
  const fs::path folder = fs::absolute(place).parent_path();
  if (!fs::is_directory(folder)) {
    throw Refused(place.string() + ": the folder " + folder.string() + " does not exist");
  }
  partial_ = folder / (".part-" + std::to_string(getpid()) + "-" + place.filename().string());
}

ExportedFile::~ExportedFile() {
  std::error_code ignored;
  fs::remove(partial_, ignored);
}

void ExportedFile::Commit() {
  std::error_code error;
  fs::rename(partial_, place_, error);
  if (error) throw FailedOnTheWay(place_.string() + ": " + error.message());
}

std::string Lower_Ending(const fs::path& file) {
  std::string ending = file.extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending;
}

}  // namespace sylvomex
