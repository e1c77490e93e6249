// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/drive_map.h"

namespace sylvomex {

class FileDescriptor;

/// A file that replaces an older one as a whole: it is written beside it under a temporary name
/// and renamed when complete, so that a full disk or a killed process leaves the old file intact.
/// Throws the RunTimeErrors of the file layer, naming the file to be replaced.
class ReplacingFile {
 public:
  /// Creates the new file and reserves `size` bytes, so that a full disk is noticed before any
  /// computation.
  ReplacingFile(const FilePath& file, std::uint64_t size);
  ~ReplacingFile();
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;

  /// Writes bytes from an offset, counted from 0. Safe to call from several threads at once for
  /// ranges that do not overlap.
  void Write_At(std::uint64_t offset, std::span<const std::uint8_t> content) const;

  /// Makes an open file without a name the new file's content. False where that cannot be: the file
  /// lies on another disk, or its disk knows no unnamed files.
  [[nodiscard]] bool Take_Over(int unnamed) const;

  /// Replaces the old file by the complete new one. Without this call the destructor discards the
  /// new file.
  void Commit();

 private:
  FilePath file_;
  FilePath partial_;
  std::unique_ptr<FileDescriptor> open_file_;
};

/// Writes a whole file through a ReplacingFile.
void Replace_Whole_File(const FilePath& file, std::span<const std::uint8_t> content);

}  // namespace sylvomex
