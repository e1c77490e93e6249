// SPDX-License-Identifier: MIT
#include "session/key_names.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace sylvomex {

namespace {

struct NamedKey {
  std::string_view name;
  int code;
};

constexpr std::array kNamedKeys{
    NamedKey{"Backspace", 8}, NamedKey{"Tab", 9},     NamedKey{"Enter", 13}, NamedKey{"Escape", 27},
    NamedKey{"Space", 32},    NamedKey{"Left", 37},   NamedKey{"Up", 38},    NamedKey{"Right", 39},
    NamedKey{"Down", 40},     NamedKey{"Delete", 46},
};

/// Numbered keys: a name such as "F" or "num" followed by a number.
struct CountedKeys {
  std::string_view prefix;
  int first;  // number of the first key
  int last;
  int first_code;  // key code of the first key
};

constexpr std::array kCountedKeys{
    CountedKeys{"num", 0, 9, 96},
    CountedKeys{"F", 1, 12, 112},
    CountedKeys{"code", 0, 255, 0},
};

std::optional<int> Number_Behind(std::string_view name, std::string_view prefix) {
  if (!name.starts_with(prefix)) return std::nullopt;
  int number = 0;
  const char* const end = name.data() + name.size();
  const auto parsed = std::from_chars(name.data() + prefix.size(), end, number);
  if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
  return number;
}

bool Is_Letter_Or_Digit(int code) {
  return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
}

}  // namespace

std::optional<int> Key_Code(std::string_view name) {
  if (name.size() == 1) {
    const char key = name[0] >= 'a' && name[0] <= 'z' ? static_cast<char>(name[0] - 32) : name[0];
    if (Is_Letter_Or_Digit(key)) return key;
  }
  const auto named = std::ranges::find(kNamedKeys, name, &NamedKey::name);
  if (named != kNamedKeys.end()) return named->code;
  for (const CountedKeys& keys : kCountedKeys) {
    const std::optional<int> number = Number_Behind(name, keys.prefix);
    if (number && *number >= keys.first && *number <= keys.last) {
      return keys.first_code + *number - keys.first;
    }
  }
  return std::nullopt;
}

std::string Key_Name(int key_code) {
  if (Is_Letter_Or_Digit(key_code)) return {static_cast<char>(key_code)};
  const auto named = std::ranges::find(kNamedKeys, key_code, &NamedKey::code);
  if (named != kNamedKeys.end()) return std::string(named->name);
  for (const CountedKeys& keys : kCountedKeys) {
    const int number = key_code - keys.first_code + keys.first;
    if (number >= keys.first && number <= keys.last) {
      return std::string(keys.prefix) + std::to_string(number);
    }
  }
  return "code" + std::to_string(key_code);
}

}  // namespace sylvomex
