// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/characters.h"

namespace sylvomex {

/// A text field of N characters (not bytes): longer texts are truncated, shorter ones padded with
/// blanks.
template <std::size_t N>
class FixedText {
 public:
  FixedText() = default;
  explicit FixedText(std::string_view text) { *this = text; }

  FixedText& operator=(std::string_view text) {
    text_ = Left_Characters(text, N);
    text_.erase(text_.find_last_not_of(' ') + 1);
    return *this;
  }

  /// All N characters, padding included.
  [[nodiscard]] std::string Padded() const {
    return text_ + std::string(N - Character_Count(text_), ' ');
  }

  /// Without the trailing blanks.
  [[nodiscard]] const std::string& Trimmed() const { return text_; }

 private:
  std::string text_;
};

}  // namespace sylvomex
