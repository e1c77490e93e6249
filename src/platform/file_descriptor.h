// SPDX-License-Identifier: MIT
// Shared by the file functions: opening a file, and error messages in the operator's terms.
#pragma once

#include <sys/stat.h>

#include "platform/drive_map.h"

namespace sylvomex {

/// Throws the RunTimeError for an error number of the operating system, naming the file.
[[noreturn]] void Throw_File_Error(const FilePath& file, int error);

/// The same for a file with unusable contents: RunTimeError(FileFailure) "<file>, <cause>".
[[noreturn]] void Throw_File_Failure(const FilePath& file, const std::string& cause);

/// An open file, closed at the end of the scope. Always an ordinary one: what is behind a pipe, a
/// socket or a device may never come, or never end.
class FileDescriptor {
 public:
  /// flags: those of open(2). RunTimeError when the file cannot be opened, is a folder or no
  /// ordinary file. Never waits for one.
  FileDescriptor(const FilePath& file, int flags);
  ~FileDescriptor();
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] const struct stat& Status() const { return status_; }

  /// Hands the open file over to the caller, who closes it.
  [[nodiscard]] int Release();

  /// Closes the file now; RunTimeError when written data could not be stored.
  void Close();

 private:
  const FilePath& file_;
  int number_ = -1;
  struct stat status_ = {};
};

}  // namespace sylvomex
