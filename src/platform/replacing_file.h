// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/drive_map.h"

namespace sylvomex {

class FileDescriptor;

/// A file that takes the place of an older one as a whole: it is written beside it under another
/// name and renamed when it is complete, so that a full disk or a kill leaves the old file.
/// RunTimeErrors of the file layer, naming the file that is to be replaced.
class ReplacingFile {
 public:
  /// Creates the new file with room for `size` bytes, so that a disk without that room is noticed
  /// before any computation.
  ReplacingFile(const FilePath& file, std::uint64_t size);
  ~ReplacingFile();
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;

  /// Writes bytes from an offset on, counted from 0. May be called by several threads at once for
  /// ranges that do not overlap.
  void Write_At(std::uint64_t offset, std::span<const std::uint8_t> content) const;

  /// Puts the complete file in the place of the old one. Without this call the destructor removes
  /// what was written.
  void Commit();

 private:
  FilePath file_;
  FilePath partial_;
  std::unique_ptr<FileDescriptor> open_file_;
};

/// Writes a whole file by way of a ReplacingFile.
void Replace_Whole_File(const FilePath& file, std::span<const std::uint8_t> content);

}  // namespace sylvomex
