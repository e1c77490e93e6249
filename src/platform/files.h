// SPDX-License-Identifier: MIT
// Files as the commands use them: read whole, written whole, appended line by line so that
// nothing measured is lost, read at positions, or mapped.
//
// Every failure is a RunTimeError whose text starts with the kind ("File not found: ") and
// names the file as the operator knows it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

std::string Read_Whole_File(const FilePath& file);

/// Writes the file anew. The content is complete and closed when the call returns.
void Write_Whole_File(const FilePath& file, std::string_view content);
void Write_Whole_File(const FilePath& file, std::span<const std::uint8_t> content);

/// Appends text (whole lines) with one write and flushes it to the disk before returning.
/// When the disk takes only a part, the file is cut back to its old length.
void Append_To_File(const FilePath& file, std::string_view text);

/// Overwrites bytes at the start of an existing file, leaving the rest as it is.
void Overwrite_Start(const FilePath& file, std::span<const std::uint8_t> content);

/// Removes a file; a file that does not exist is no failure.
void Delete_File(const FilePath& file);

/// Removes every file that the pattern matches ("c:\data\ImaFiles\*.txt"), without regard to
/// case. A pattern that matches none, or a folder that does not exist, is no failure.
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

  /// Fills the buffer from the offset; returns the bytes that the file had, fewer than
  /// asked for only at its end. A negative offset is a RunTimeError(FileFailure).
  std::size_t Read_At(std::int64_t offset, std::span<std::uint8_t> buffer) const;

 private:
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
  FilePath file_;
};

/// A file mapped read-only in full.
class MappedFile {
 public:
  explicit MappedFile(const FilePath& file);
  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  [[nodiscard]] std::span<const std::uint8_t> Bytes() const { return {data_, size_}; }
  [[nodiscard]] const FilePath& File() const { return file_; }

  /// True while the file at the path is still the one that was mapped, unchanged in length
  /// and modification time. Callers ask before each use, so that a file which was replaced
  /// or cut meanwhile is mapped anew instead of being read past its end.
  [[nodiscard]] bool Is_Current() const;

 private:
  FilePath file_;
  const std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
  std::uint64_t device_ = 0;
  std::uint64_t inode_ = 0;
  std::int64_t modified_ns_ = 0;
};

}  // namespace sylvomex
