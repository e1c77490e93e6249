// SPDX-License-Identifier: MIT
// Shared by the binary lidar files: a 32-bit record count, then the records, packed. Little-endian.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <span>

#include "platform/files.h"

namespace sylvomex {

static_assert(std::endian::native == std::endian::little, "lidar files are little-endian");

inline constexpr std::int64_t kCountBytes = 4;

/// Creates an empty file where there is none. Commands that work around one point open their tile
/// for reading and writing, which creates a missing one with a count of 0.
void Make_Missing_File(const FilePath& file);

/// The record count of a file, 0 for an empty file. RunTimeError(BadContent) for a file of one to
/// three bytes. Nothing else is checked.
std::int32_t Read_Record_Count(const FilePath& file);

/// An open file whose count fits its length.
class CountedFile {
 public:
  /// record_bytes: distance from a record to the next. RunTimeError(BadContent) naming the
  /// file, the bytes wanted and the bytes found, for a negative count and for a file that is
  /// too short for its count; bytes after the last record are ignored.
  CountedFile(const FilePath& file, std::int64_t record_bytes);

  [[nodiscard]] std::int32_t Count() const { return count_; }

  /// Reads the bytes from a record on, records counted from 0. What lies past the end of the
  /// file reads as 0.
  void Read_From(std::int64_t record, std::span<std::uint8_t> bytes) const;

 private:
  PositionalFile file_;
  std::int64_t record_bytes_;
  std::int32_t count_;
};

/// A value at a byte offset of a packed record.
template <class Value>
Value Value_At(const std::uint8_t* record, std::size_t offset) {
  Value value;
  std::memcpy(&value, record + offset, sizeof value);
  return value;
}

}  // namespace sylvomex
