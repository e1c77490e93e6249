// SPDX-License-Identifier: MIT
#include "interchange/import_transaction.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <fstream>
#include <system_error>

#include "interchange/checksum.h"
#include "interchange/failures.h"
#include "interchange/output_file.h"
#include "interchange/site.h"
#include "interchange/site_text.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolderName = ".sylvomex-import";
constexpr const char* kDecision = "decided";

std::string Utc_Now() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

/// A workstation that works on the site locks the site's own folder and is not disturbed.
fs::path Locked_Folder(const fs::path& site) {
  const fs::path drive = site / "c";
  return fs::is_directory(drive) ? drive : site;
}

void Sync_Folder(const fs::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

/// Renames; across file systems copies beside the target first.
void Move_Whole(const fs::path& from, const fs::path& to) {
  fs::create_directories(to.parent_path());
  std::error_code error;
  fs::rename(from, to, error);
  if (error.value() == EXDEV) {
    const fs::path beside = to.string() + ".sylvomex-part";
    fs::copy_file(from, beside, fs::copy_options::overwrite_existing);
    fs::rename(beside, to);
    fs::remove(from);
  } else if (error) {
    throw fs::filesystem_error("rename", from, to, error);
  }
}

/// The decision's lines: the new file's name in the folder, then its target's path within the site.
void Carry_Out(const fs::path& site, const fs::path& folder) try {
  std::ifstream decision(folder / kDecision);
  std::string name;
  std::string target;
  while (std::getline(decision, name) && std::getline(decision, target)) {
    if (fs::exists(folder / name)) Move_Whole(folder / name, site / target);
  }
  Sync_Folder(site);
  fs::remove_all(folder);
} catch (const fs::filesystem_error& error) {
  throw FailedOnTheWay(error.path2().string() + ": " + error.code().message() +
                       "; the next run goes on here");
}

}  // namespace

void Finish_Killed_Import(const fs::path& folder) {
  const fs::path left = folder / kFolderName;
  if (!fs::exists(left)) return;
  const SiteLock lock(folder);
  if (!lock.Is_Held()) return;
  if (fs::exists(left / kDecision)) {
    Carry_Out(folder, left);
  } else {
    std::error_code ignored;
    fs::remove_all(left, ignored);
  }
}

SiteLock::SiteLock(const fs::path& folder)
    : descriptor_(open(Locked_Folder(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (descriptor_ < 0 || flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return;
  close(descriptor_);
  descriptor_ = -1;
}

SiteLock::~SiteLock() {
  if (descriptor_ >= 0) close(descriptor_);
}

ImportTransaction::ImportTransaction(const fs::path& folder)
    : lock_((Finish_Killed_Import(folder), folder)), folder_(folder / kFolderName) {
  if (fs::is_directory(folder) && !lock_.Is_Held()) {
    throw Refused(folder.string() + ": another import works on this site");
  }
  site_ = Open_Site(folder);
}

ImportTransaction::~ImportTransaction() {
  std::error_code ignored;
  if (lock_.Is_Held() && !fs::exists(folder_ / kDecision, ignored))
    fs::remove_all(folder_, ignored);
}

void ImportTransaction::Make_Folder() {
  std::error_code error;
  fs::create_directories(folder_, error);
  if (error) throw FailedOnTheWay(folder_.string() + ": " + error.message());
}

fs::path ImportTransaction::New_File(const fs::path& target) {
  Make_Folder();
  const auto [entry, is_new] = files_.try_emplace(target);
  if (is_new) {
    entry->second = folder_ / (std::to_string(files_.size()) + "_" + target.filename().string());
  }
  return entry->second;
}

fs::path ImportTransaction::Scratch_File(const std::string& name) {
  Make_Folder();
  return folder_ / ("scratch_" + name);
}

void ImportTransaction::Write(const fs::path& target, std::string_view content) {
  OutputFile file(New_File(target), target.string());
  file.Write(content);
  file.Close();
}

void ImportTransaction::Commit(ImportEntry entry) {
  entry.time = Utc_Now();
  site_.imports.push_back(std::move(entry));
  Commit();
}

void ImportTransaction::Commit() {
  std::string decision;
  for (const auto& [target, file] : files_) {
    decision +=
        file.filename().string() + '\n' + target.lexically_relative(site_.folder).string() + '\n';
  }
  Make_Folder();
  const fs::path record = site_.folder / "site.toml";
  OutputFile site_file(folder_ / "site.toml", record.string());
  site_file.Write(Site_Text(site_));
  site_file.Close_Synced();
  decision += "site.toml\nsite.toml\n";
  OutputFile list(folder_ / "undecided", (folder_ / kDecision).string());
  list.Write(decision);
  list.Close_Synced();
  fs::rename(folder_ / "undecided", folder_ / kDecision);
  Sync_Folder(folder_);
  Carry_Out(site_.folder, folder_);
  files_.clear();
}

std::vector<SourceFile> Source_Files(const std::vector<fs::path>& files) {
  std::vector<SourceFile> sources;
  for (const fs::path& file : files) {
    const std::string checksum = File_Checksum(file);
    sources.push_back({file.string(), checksum, fs::file_size(file)});
  }
  return sources;
}

}  // namespace sylvomex
