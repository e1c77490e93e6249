// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace sylvomex {

/// A new file written from its start to its end. Every failure is FailedOnTheWay and names the file
/// for which it is made.
class OutputFile {
 public:
  /// path: where the bytes go; name: the file in messages.
  OutputFile(const std::filesystem::path& path, std::string name);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void Write(std::span<const std::uint8_t> bytes);
  void Write(std::string_view text);

  /// Writes at an offset from the file's start; safe from several threads.
  void Write_At(std::uint64_t offset, std::span<const std::uint8_t> bytes) const;

  void Close();
  /// Close when the content is on the disk.
  void Close_Synced();

 private:
  [[noreturn]] void Fail(int error) const;

  std::string name_;
  int descriptor_ = -1;
  std::uint64_t written_ = 0;
};

}  // namespace sylvomex
