// SPDX-License-Identifier: MIT
#include "session/journal_reads.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

#include "platform/checksum.h"
#include "session/script_reader.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kWhollyChecked = 131072;  // bytes, see Checksum_Of_File

std::string Modified_Text(const struct stat& status) {
  return std::to_string(std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 +
                        status.st_mtim.tv_nsec);
}

JournaledRead State_Of(int descriptor, const struct stat& status) {
  const auto bytes = static_cast<std::uint64_t>(status.st_size);
  return {bytes, Modified_Text(status), Checksum_Of_File(descriptor, bytes)};
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

JournalReads::JournalReads(Journal& journal) : journal_(journal), former_(Set_File_Watch(this)) {}

JournalReads::~JournalReads() { Set_File_Watch(former_); }

void JournalReads::Knows(const JournalFacts& facts) {
  for (const auto& [path, read] : facts.reads) reads_in_journal_.insert(path);
  writes_in_journal_ = facts.writes;
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
  if (!writes_in_journal_.insert(path).second) return;
  journal_.Comment("writes " + Script_Word(path));
}

void JournalReads::Hide_From(const std::string& path, std::optional<std::uint64_t> offset) {
  const std::lock_guard lock(mutex_);
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

std::vector<std::string> Changed_Files(const JournalFacts& facts) {
  std::set<std::string> own = facts.writes;
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
