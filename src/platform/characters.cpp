// SPDX-License-Identifier: MIT
#include "platform/characters.h"

#include <algorithm>

namespace sylvomex {

namespace {

struct Bytes {
  unsigned char first = 0;
  unsigned char last = 0;
};

/// The valid range of the second byte after a lead byte (narrower than 80..BF where overlong forms,
/// surrogates or code points above U+10FFFF would begin) and the number of continuation bytes.
struct Sequence {
  Bytes lead;
  Bytes second;
  std::size_t length = 1;
};

constexpr Sequence kSequences[] = {
    {{0xC2, 0xDF}, {0x80, 0xBF}, 2}, {{0xE0, 0xE0}, {0xA0, 0xBF}, 3},
    {{0xE1, 0xEC}, {0x80, 0xBF}, 3}, {{0xED, 0xED}, {0x80, 0x9F}, 3},
    {{0xEE, 0xEF}, {0x80, 0xBF}, 3}, {{0xF0, 0xF0}, {0x90, 0xBF}, 4},
    {{0xF1, 0xF3}, {0x80, 0xBF}, 4}, {{0xF4, 0xF4}, {0x80, 0x8F}, 4},
};
constexpr Bytes kFurther{0x80, 0xBF};

bool Lies_In(char c, Bytes range) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= range.first && byte <= range.last;
}

bool Begins_With(std::string_view text, const Sequence& sequence) {
  return text.size() >= sequence.length && Lies_In(text[0], sequence.lead) &&
         Lies_In(text[1], sequence.second) &&
         std::ranges::all_of(text.substr(2, sequence.length - 2),
                             [](char c) { return Lies_In(c, kFurther); });
}

/// Length in bytes of the first character of a non-empty text.
std::size_t First_Character(std::string_view text) {
  const auto sequence =
      std::ranges::find_if(kSequences, [text](const Sequence& s) { return Begins_With(text, s); });
  return sequence == std::end(kSequences) ? 1 : sequence->length;
}

bool Is_Utf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = First_Character(text);
    if (length == 1 && static_cast<unsigned char>(text[0]) >= 0x80) return false;
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace

std::size_t Character_Count(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(First_Character(text));
  return count;
}

std::string_view Left_Characters(std::string_view text, std::size_t count) {
  std::size_t bytes = 0;
  for (; count > 0 && bytes < text.size(); --count) bytes += First_Character(text.substr(bytes));
  return text.substr(0, bytes);
}

std::string As_Utf8(std::string_view text) {
  if (Is_Utf8(text)) return std::string(text);
  std::string utf8;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xC0U | byte >> 6U);
      utf8 += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return utf8;
}

}  // namespace sylvomex
