// SPDX-License-Identifier: MIT
#include "platform/checksum.h"

#include <unistd.h>

#include <array>
#include <charconv>

namespace sylvomex {
namespace {

constexpr std::uint64_t kEnd = 65536;  // bytes at either end of a large file

bool Read_At(int descriptor, std::uint64_t offset, std::uint64_t size, std::string& content) {
  const std::size_t start = content.size();
  content.resize(start + size);
  return pread(descriptor, content.data() + start, size, static_cast<off_t>(offset)) ==
         static_cast<ssize_t>(size);
}

}  // namespace

std::string Checksum(std::string_view content) {
  std::uint64_t sum = 0xcbf29ce484222325U;
  for (const char c : content) {
    sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
  }
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), sum, 16);
  const std::string text(digits.data(), end.ptr);
  return std::string(digits.size() - text.size(), '0') + text;
}

std::string Checksum_Of_File(int descriptor, std::uint64_t size) {
  std::string content;
  const bool read = size <= 2 * kEnd ? Read_At(descriptor, 0, size, content)
                                     : Read_At(descriptor, 0, kEnd, content) &&
                                           Read_At(descriptor, size - kEnd, kEnd, content);
  return read ? Checksum(content) : "";
}

}  // namespace sylvomex
