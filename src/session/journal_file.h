// SPDX-License-Identifier: MIT
#pragma once

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
  /// Opens or creates the file and cuts it to keep bytes. RunTimeError when that fails or another
  /// program writes the file.
  JournalFile(const FilePath& file, std::uint64_t keep);
  ~JournalFile();
  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;

  /// Appends whole lines with one write. After the first failure nothing more is written.
  void Write(std::string_view lines);

  /// Waits until everything written is on the disk.
  void Flush();

  /// Why nothing is written any more; empty as long as all is well.
  [[nodiscard]] const std::string& Failure() const { return failure_; }

 private:
  void Flush_Now_And_Then();

  FilePath file_;
  FileDescriptor open_file_;
  std::string failure_;
  std::mutex mutex_;      // guards the two below
  bool waiting_ = false;  // something was written since the last flush
  bool ends_ = false;
  std::condition_variable changed_;
  std::thread flusher_;
};

}  // namespace sylvomex
