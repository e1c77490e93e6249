// SPDX-License-Identifier: MIT
// Lengths of text in characters. A character is a UTF-8 code point (RFC 3629, section 4); a byte
// that belongs to no well-formed sequence counts as one character.
#pragma once

#include <string>
#include <string_view>

namespace sylvomex {

std::size_t Character_Count(std::string_view text);

/// The first count characters of the text, or the whole text when it has fewer.
std::string_view Left_Characters(std::string_view text, std::size_t count);

/// The text unchanged when it is valid UTF-8, otherwise each byte converted from Latin-1 (old field
/// files).
std::string As_Utf8(std::string_view text);

}  // namespace sylvomex
