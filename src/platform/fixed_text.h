// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace sylvomex {

/// A text field of N characters: longer texts are cut, shorter ones padded with blanks.
template <std::size_t N>
class FixedText {
 public:
  FixedText() { characters_.fill(' '); }
  explicit FixedText(std::string_view text) { *this = text; }

  FixedText& operator=(std::string_view text) {
    characters_.fill(' ');
    text.copy(characters_.data(), N);
    return *this;
  }

  /// All N characters, padding included.
  [[nodiscard]] std::string Padded() const { return {characters_.data(), N}; }

  /// Without the trailing blanks.
  [[nodiscard]] std::string Trimmed() const {
    std::string text = Padded();
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  }

 private:
  std::array<char, N> characters_;
};

}  // namespace sylvomex
