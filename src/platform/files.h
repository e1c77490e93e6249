// SPDX-License-Identifier: MIT
// File access for the commands: read whole, write whole, append line by line so that no measurement
// is lost, read at offsets, or map into memory.
//
// Every failure is a RunTimeError whose text starts with the kind ("File not found: ") and
// names the file as the operator knows it. Writing also throws the failure of a mapped file that
// the command has read (sound_reads.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

std::string Read_Whole_File(const FilePath& file);

/// Replaces the file's contents. They are complete and the file is closed on return.
void Write_Whole_File(const FilePath& file, std::string_view content);
void Write_Whole_File(const FilePath& file, std::span<const std::uint8_t> content);

/// Appends text (whole lines) with one write and flushes it to disk before returning, with the file
/// locked against other programs. What was written in part is taken back. A file whose last line
/// has no line end gets one first, of which the operator is told once (operator_notices.h). With an
/// empty text the file is only created, or reported when it cannot be opened.
void Append_To_File(const FilePath& file, std::string_view text);

/// Overwrites bytes at the start of an existing file, leaving the rest as it is.
void Overwrite_Start(const FilePath& file, std::span<const std::uint8_t> content);

/// Removes a file; a missing file is not an error.
void Delete_File(const FilePath& file);

/// Removes every file that matches the pattern ("c:\data\ImaFiles\*.txt"), ignoring case. No match,
/// or a missing folder, is not an error.
void Delete_Matching(const DriveMap& drives, std::string_view pattern);

bool File_Exists(const FilePath& file);

/// A file read at byte offsets counted from 0.
class PositionalFile {
 public:
  explicit PositionalFile(const FilePath& file);
  ~PositionalFile();
  PositionalFile(const PositionalFile&) = delete;
  PositionalFile& operator=(const PositionalFile&) = delete;
  PositionalFile(PositionalFile&& other) noexcept;
  PositionalFile& operator=(PositionalFile&&) = delete;

  [[nodiscard]] std::uint64_t Size() const { return size_; }

  /// Reads into the buffer from the offset and returns the number of bytes read, which is less than
  /// the buffer's size only at the end of the file. A negative offset is a
  /// RunTimeError(FileFailure).
  std::size_t Read_At(std::int64_t offset, std::span<std::uint8_t> buffer) const;

 private:
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
  FilePath file_;
};

class Mapping;

/// A whole file mapped read-only. When the file shrinks or cannot be read any further, its bytes
/// become zeros; whoever reads them asks Require_Sound, or Require_Sound_Reads (sound_reads.h) in a
/// command, before using the result.
class MappedFile {
 public:
  explicit MappedFile(const FilePath& file);

  /// They stay as long as the file is mapped, in a command at least until it ends.
  [[nodiscard]] std::span<const std::uint8_t> Bytes() const;
  [[nodiscard]] const FilePath& File() const;

  /// True while the file at the path is still the one that was mapped, with the same length and
  /// modification time, and all of it could be read. Callers check before each use and map a
  /// replaced or shortened file again instead of reading past its end.
  [[nodiscard]] bool Is_Current() const;

  /// RunTimeError(FileFailure) naming the file when it became shorter or unreadable.
  void Require_Sound() const;

 private:
  std::shared_ptr<const Mapping> mapping_;
};

}  // namespace sylvomex
