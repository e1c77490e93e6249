// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "platform/drive_map.h"

namespace sylvomex {

/// A result too large for memory, whose name is not known yet: a file without a name, which
/// vanishes with the program. Its RunTimeErrors are those of the file layer and name the folder.
class UnnamedFile {
 public:
  /// In a folder, with room for `size` bytes, all 0.
  UnnamedFile(const FilePath& folder, std::uint64_t size);
  ~UnnamedFile();
  UnnamedFile(const UnnamedFile&) = delete;
  UnnamedFile& operator=(const UnnamedFile&) = delete;

  /// Writes bytes from an offset on, counted from 0.
  void Write_At(std::uint64_t offset, std::span<const std::uint8_t> content) const;

  /// Puts the content in the place of a file as a whole: by its name alone where both lie on one
  /// disk, else by a copy. RunTimeErrors name that file; the old one then stays.
  void Replace(const FilePath& file) const;

 private:
  FilePath folder_;
  std::uint64_t size_;
  int descriptor_;
};

}  // namespace sylvomex
