// SPDX-License-Identifier: MIT
// Lengths of texts that people type. A character is a code point of UTF-8 (RFC 3629, section 4);
// a byte that belongs to no well-formed sequence counts as one character.
#pragma once

#include <string>
#include <string_view>

namespace sylvomex {

std::size_t Character_Count(std::string_view text);

/// The first count characters of the text, all of it when it has no more.
std::string_view Left_Characters(std::string_view text, std::size_t count);

/// The text as UTF-8: itself when it is, else each byte read as Latin-1 (old field files).
std::string As_Utf8(std::string_view text);

}  // namespace sylvomex
