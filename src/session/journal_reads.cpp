// SPDX-License-Identifier: MIT
#include "session/journal_reads.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/checksum.h"
#include "session/script_reader.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kWhollyChecked = 131072;  // bytes, see Checksum_Of_File
constexpr const char* kNoFile = "none";           // no name of a kept state

std::string Modified_Text(const struct stat& status) {
  return std::to_string(std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 +
                        status.st_mtim.tv_nsec);
}

JournaledRead State_Of(int descriptor, const struct stat& status) {
  const auto bytes = static_cast<std::uint64_t>(status.st_size);
  return {bytes, Modified_Text(status), Checksum_Of_File(descriptor, bytes)};
}

std::string Word_Of(BeforeWrite before) {
  if (before == BeforeWrite::Unknown) return "";
  return before == BeforeWrite::Missing ? " new" : " kept";
}

/// Why a file is not what it was, or the empty text.
std::string Change(const std::string& path, const JournaledRead& then) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return "is gone";
  struct stat status = {};
  JournaledRead now;
  if (fstat(descriptor, &status) == 0) now = State_Of(descriptor, status);
  close(descriptor);
  if (now.bytes != then.bytes) {
    return "had " + std::to_string(then.bytes) + " bytes and has " + std::to_string(now.bytes);
  }
  if (now.checksum != then.checksum) return "has another content";
  const bool is_sure = now.bytes <= kWhollyChecked || now.modified == then.modified;
  return is_sure ? "" : "was written since and may have another content";
}

}  // namespace

JournalReads::JournalReads(Journal& journal, const JournalFacts& facts,
                           std::filesystem::path folder)
    : journal_(journal),
      folder_(std::move(folder)),
      former_(Set_File_Watch(this)),
      not_yet_there_(facts.created),
      again_(facts.writes) {
  for (const auto& [path, read] : facts.reads) {
    reads_in_journal_.insert(path);
    if (read.bytes == 0) begun_empty_.insert(path);
  }
  for (const auto& [path, write] : facts.writes) writes_in_journal_.insert(path);
}

JournalReads::~JournalReads() { Set_File_Watch(former_); }

void JournalReads::Is_Done_Again() {
  const std::lock_guard lock(mutex_);
  again_.clear();
  not_yet_there_.clear();
  hidden_from_.clear();
  then_.clear();
}

/// Whether there was no file before its first line, which begins it: an empty one would have been
/// noted when it was read or made.
bool JournalReads::Was_Missing(const std::string& path) const {
  return !begun_empty_.contains(path);
}

// A kept state that has got lost is replaced by what there is.
std::filesystem::path JournalReads::Place_Before_Write(const std::string& path) const {
  const auto write = again_.find(path);
  if (write == again_.end() || write->second.before == BeforeWrite::Unknown) return path;
  if (write->second.before == BeforeWrite::Missing) return folder_ / kNoFile;
  std::error_code failure;
  const std::filesystem::path kept = folder_ / Checksum(path);
  return std::filesystem::exists(kept, failure) ? kept : std::filesystem::path(path);
}

std::filesystem::path JournalReads::Place_To_Read(const FilePath& file) {
  const std::lock_guard lock(mutex_);
  const bool is_past =
      again_.empty() && not_yet_there_.empty() && hidden_from_.empty() && then_.empty();
  if (is_past) return file.native;
  const std::string path = file.native.string();
  if (not_yet_there_.contains(path)) return folder_ / kNoFile;
  const auto then = then_.find(path);
  const auto place = then == then_.end() ? std::nullopt : then->second.Place();
  if (place) return place->empty() ? folder_ / kNoFile : *place;
  const auto hidden = hidden_from_.find(path);
  const bool begins = hidden != hidden_from_.end() && hidden->second == 0;
  return begins && Was_Missing(path) ? folder_ / kNoFile : Place_Before_Write(path);
}

bool JournalReads::Read_As_It_Was(const std::string& path, long first_append, std::uint64_t begin) {
  const std::lock_guard lock(mutex_);
  const auto write = again_.find(path);
  const bool is_written_first = write != again_.end() && write->second.after_append < first_append;
  if (begin > kLargestKept || is_written_first) return false;
  then_.try_emplace(path, Place_Before_Write(path), begin, begin == 0 && Was_Missing(path));
  return true;
}

void JournalReads::Has_Again(const std::string& path, std::uint64_t offset,
                             std::string_view lines) {
  const std::lock_guard lock(mutex_);
  const auto then = then_.find(path);
  if (then != then_.end()) then->second.Append(offset, lines);
}

void JournalReads::Is_Without_Again(const std::string& path, std::uint64_t bytes) {
  const std::lock_guard lock(mutex_);
  const auto then = then_.find(path);
  if (then != then_.end()) then->second.Take(bytes);
}

/// Keeps the state of a file that is about to be written over for the first time.
BeforeWrite JournalReads::Keep(const std::string& path) {
  std::error_code failure;
  const std::uintmax_t bytes = std::filesystem::file_size(path, failure);
  const bool is_missing = failure == std::errc::no_such_file_or_directory;
  if (failure) return is_missing ? BeforeWrite::Missing : BeforeWrite::Unknown;
  if (bytes > kLargestKept || !reads_in_journal_.contains(path)) return BeforeWrite::Unknown;
  std::filesystem::create_directories(folder_, failure);
  const auto kOver = std::filesystem::copy_options::overwrite_existing;
  const bool is_kept =
      std::filesystem::copy_file(path, folder_ / Checksum(path), kOver, failure) && !failure;
  return is_kept ? BeforeWrite::Kept : BeforeWrite::Unknown;
}

void JournalReads::Reads(const FilePath& file, int descriptor, const struct stat& status) {
  const std::string path = file.native.string();
  const std::lock_guard lock(mutex_);
  if (written_.contains(path) || !reads_in_journal_.insert(path).second) return;
  const JournaledRead read = State_Of(descriptor, status);
  journal_.Comment("reads " + Script_Word(path) + " " + std::to_string(read.bytes) + " " +
                   read.modified + " " + read.checksum);
}

void JournalReads::Will_Change(const FilePath& file, bool appends) {
  if (appends) return;
  const std::string path = file.native.string();
  const std::lock_guard lock(mutex_);
  written_.insert(path);
  again_.erase(path);
  not_yet_there_.erase(path);
  then_.erase(path);
  if (!writes_in_journal_.insert(path).second) return;
  journal_.Comment("writes " + Script_Word(path) + Word_Of(Keep(path)));
}

void JournalReads::Is_Created_Again(const std::string& path) {
  const std::lock_guard lock(mutex_);
  not_yet_there_.erase(path);
  begun_empty_.insert(path);
  const auto then = then_.find(path);
  if (then != then_.end()) then->second.Append(0, "");
}

std::optional<long> JournalReads::Coming_Write(const std::string& path) const {
  const std::lock_guard lock(mutex_);
  const auto write = again_.find(path);
  return write == again_.end() ? std::nullopt : std::optional(write->second.after_append);
}

void JournalReads::Hide_From(const std::string& path, std::optional<std::uint64_t> offset) {
  const std::lock_guard lock(mutex_);
  if (then_.contains(path)) return;
  if (offset) {
    hidden_from_[path] = *offset;
  } else {
    hidden_from_.erase(path);
  }
}

std::uint64_t JournalReads::Visible_Bytes(const FilePath& file, std::uint64_t size) {
  const std::lock_guard lock(mutex_);
  const auto hidden = hidden_from_.find(file.native.string());
  return hidden == hidden_from_.end() ? size : std::min(size, hidden->second);
}

bool JournalReads::Has_Written(const FilePath& file) const {
  const std::lock_guard lock(mutex_);
  return written_.contains(file.native.string());
}

std::filesystem::path Folder_Of_Kept(const std::filesystem::path& journal) {
  return journal.string() + ".before";
}

void Remove_Kept(const std::filesystem::path& journal) {
  std::error_code failure;
  const std::filesystem::path folder = Folder_Of_Kept(journal);
  std::vector<std::filesystem::path> kept;
  for (const auto& entry : std::filesystem::directory_iterator(folder, failure)) {
    const std::string name = entry.path().filename().string();
    const bool is_checksum = name.find_first_not_of("0123456789abcdef") == std::string::npos;
    if (is_checksum && name.size() == Checksum("").size()) kept.push_back(entry.path());
  }
  for (const std::filesystem::path& file : kept) std::filesystem::remove(file, failure);
  if (!kept.empty()) std::filesystem::remove(folder, failure);
}

std::vector<std::string> Changed_Files(const JournalFacts& facts) {
  std::set<std::string> own;
  for (const auto& [path, write] : facts.writes) own.insert(path);
  for (const auto& [number, append] : facts.appends) own.insert(append.file);
  std::vector<std::string> changed;
  for (const auto& [path, then] : facts.reads) {
    if (own.contains(path)) continue;
    const std::string change = Change(path, then);
    if (!change.empty()) changed.push_back(path + " " + change);
  }
  return changed;
}

}  // namespace sylvomex
