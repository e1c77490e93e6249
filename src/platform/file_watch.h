// SPDX-License-Identifier: MIT
// Sees which files the program reads: a journal tells by it on which files the work depends.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>

#include "platform/drive_map.h"

namespace sylvomex {

/// May be called from several threads at once.
class FileWatch {
 public:
  virtual ~FileWatch() = default;

  /// A file was opened for reading only. descriptor: the open file, whose position must stay.
  virtual void Reads(const FilePath& file, int descriptor, const struct stat& status) = 0;

  /// How many bytes of a file of that size a reader is given: fewer when a session is done again
  /// whose later lines stand in the file already.
  [[nodiscard]] virtual std::uint64_t Visible_Bytes(const FilePath&, std::uint64_t size) {
    return size;
  }

  /// The native path that is opened when the file is to be read: that of an earlier state when a
  /// session is done again that has overwritten the file since, or of none when there was none.
  [[nodiscard]] virtual std::filesystem::path Place_To_Read(const FilePath& file) {
    return file.native;
  }
};

/// Makes a watch that of the whole program, nullptr for none, and returns the former one.
FileWatch* Set_File_Watch(FileWatch* watch);

/// The program's watch; nullptr for none.
FileWatch* Present_File_Watch();

/// The bytes that a reader is given; all of them without a watch.
std::uint64_t Visible_Bytes(const FilePath& file, std::uint64_t size);

/// Where a reader opens the file; its native path without a watch.
std::filesystem::path Place_To_Read(const FilePath& file);

}  // namespace sylvomex
