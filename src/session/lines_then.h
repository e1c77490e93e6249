// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sylvomex {

/// A file of lines as it stood at the moment of a session that is done again. Lines that were taken
/// back later are missing from the file itself and stand here until they are taken again. It has no
/// name and vanishes with the object.
class LinesThen {
 public:
  /// file: where the lines of others stand, before and between those of the session; it may be
  /// missing. begin: at which byte the session's first line begins, counted from 0. was_missing:
  /// there was no file before that line.
  LinesThen(std::filesystem::path file, std::uint64_t begin, bool was_missing);
  ~LinesThen();
  LinesThen(const LinesThen&) = delete;
  LinesThen& operator=(const LinesThen&) = delete;

  /// Lines of the session at that byte; what is missing before them is taken from the file.
  void Append(std::uint64_t offset, std::string_view lines);

  /// Bytes are taken from the end.
  void Take(std::uint64_t bytes);

  /// Where it is opened for reading. Empty as long as there was no file; std::nullopt when the
  /// system gave it no room.
  [[nodiscard]] std::optional<std::filesystem::path> Place() const;

 private:
  void Fill_To(std::uint64_t end);
  void Write(std::string_view lines);

  std::filesystem::path file_;
  int descriptor_;
  std::uint64_t size_ = 0;
  bool is_missing_;
  bool is_whole_;  // all that was written found room
};

}  // namespace sylvomex
