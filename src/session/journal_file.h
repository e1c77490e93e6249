// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "platform/file_descriptor.h"

namespace sylvomex {

/// A file of lines that are on the disk within half a second after they were written, whatever
/// happens to the program or the machine. One program at a time writes it.
class JournalFile {
 public:
  /// Opens or creates the file and cuts it to keep bytes, of which the first `complete` are
  /// complete (see Mark_Complete). RunTimeError when that fails or another program writes the file.
  JournalFile(const FilePath& file, std::uint64_t keep, std::uint64_t complete);
  ~JournalFile();
  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;

  /// Appends whole lines with one write, unless the disk takes them in parts. After the first
  /// failure nothing more is written, and the file ends where it was complete last.
  void Write(std::string_view lines);

  /// What stands in the file can be left without what follows. Of an event that is there in part,
  /// nobody would know later what it saved.
  void Mark_Complete() { complete_ = size_; }

  /// Waits until everything written is on the disk.
  void Flush();

  /// Why nothing is written any more; empty as long as all is well.
  [[nodiscard]] const std::string& Failure() const { return failure_; }

 private:
  void Flush_Now_And_Then();
  void Fail(int error);

  FilePath file_;
  FileDescriptor open_file_;
  std::uint64_t size_ = 0;      // bytes
  std::uint64_t complete_ = 0;  // of them
  std::string failure_;
  std::atomic<int> flush_error_ = 0;  // of a flush in between
  std::mutex mutex_;                  // guards the two below
  bool waiting_ = false;              // something was written since the last flush
  bool ends_ = false;
  std::condition_variable changed_;
  std::thread flusher_;
};

}  // namespace sylvomex
