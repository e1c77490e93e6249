// SPDX-License-Identifier: MIT
#include "interchange/import_transaction.h"

#include <ctime>
#include <system_error>

#include "interchange/checksum.h"
#include "interchange/failures.h"
#include "interchange/output_file.h"
#include "interchange/site.h"
#include "interchange/site_text.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

std::string Utc_Now() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

}  // namespace

ImportTransaction::ImportTransaction(const fs::path& folder)
    : lock_((Finish_Killed_Import(folder), folder)), folder_(folder / kImportFolder) {
  if (fs::is_directory(folder) && !lock_.Is_Held()) {
    throw Refused(folder.string() + ": another import works on this site");
  }
  site_ = Open_Site(folder);
}

ImportTransaction::~ImportTransaction() {
  std::error_code ignored;
  if (lock_.Is_Held() && !fs::exists(folder_ / kImportDecision, ignored))
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
  OutputFile list(folder_ / "undecided", (folder_ / kImportDecision).string());
  list.Write(decision);
  list.Close_Synced();
  fs::rename(folder_ / "undecided", folder_ / kImportDecision);
  Sync_Folder(folder_);
  Carry_Out_Import(site_.folder);
  files_.clear();
}

std::vector<SourceFile> Source_Files(const std::vector<fs::path>& files,
                                     const std::stop_token& stop) {
  std::vector<SourceFile> sources;
  for (const fs::path& file : files) {
    const std::string checksum = File_Checksum(file, stop);
    sources.push_back({file.string(), checksum, fs::file_size(file)});
  }
  return sources;
}

}  // namespace sylvomex
