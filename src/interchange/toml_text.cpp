// SPDX-License-Identifier: MIT
#include "interchange/toml_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <sstream>
#include <vector>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

[[noreturn]] void Refuse(const std::string& name, std::string_view cause, std::size_t line) {
  throw Refused(name + ", line " + std::to_string(line) + ": no TOML: " + std::string(cause));
}

/// Bytes of the UTF-8 character that begins the text; 0: none does (RFC 3629, section 4).
std::size_t Utf8_Length(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
  }
  const unsigned char second = byte(1);
  const bool too_long = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool surrogate = first == 0xED && second > 0x9F;
  const bool beyond_unicode = first == 0xF4 && second > 0x8F;
  return too_long || surrogate || beyond_unicode ? 0 : length;
}

/// Bytes of the string that begins the text, in single or triple quotes, with its quotes. One that
/// is not ended goes to the end of its line, in triple quotes to that of the text.
std::size_t String_Length(std::string_view text) {
  const char quote = text.front();
  const std::string triple(3, quote);
  const bool over_lines = text.starts_with(triple);
  const std::string ending = over_lines ? triple : std::string(1, quote);
  std::size_t at = ending.size();
  while (at < text.size() && !text.substr(at).starts_with(ending)) {
    if (!over_lines && text[at] == '\n') return at;
    at += quote == '"' && text[at] == '\\' ? 2 : 1;
  }
  at += ending.size();
  // One or two quotes may end the content of a string in triple quotes.
  while (over_lines && at < text.size() && text[at] == quote) ++at;
  return std::min(at, text.size());
}

/// Line, from 1, of the byte.
std::size_t Line_Of(std::string_view text, std::size_t at) {
  return 1 + static_cast<std::size_t>(std::ranges::count(text.substr(0, at), '\n'));
}

/// Refuses what TOML allows nowhere: bytes that are no UTF-8, and control characters.
void Check_Characters(std::string_view text, const std::string& name) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Utf8_Length(text.substr(at));
    if (length == 0) Refuse(name, "a byte that is no UTF-8", Line_Of(text, at));
    const char c = text[at];
    const bool line_end = c == '\n' || text.substr(at).starts_with("\r\n");
    if ((static_cast<unsigned char>(c) < 0x20 && c != '\t' && !line_end) || c == 0x7F) {
      Refuse(name, "a control character", Line_Of(text, at));
    }
    at += length;
  }
}

/// \UXXXXXXXX of the UTF-8 character that the text is.
std::string Escape_Of(std::string_view text) {
  std::uint32_t code = static_cast<unsigned char>(text[0]) & (0x7FU >> text.size());
  for (const char c : text.substr(1)) code = code << 6 | (static_cast<unsigned char>(c) & 0x3FU);
  std::ostringstream escape;
  escape << "\\U" << std::hex << std::setw(8) << std::setfill('0') << code;
  return escape.str();
}

bool Is_Ascii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The content of a string for double quotes, in ASCII. literal: it stood in single quotes.
std::string Ascii_Content(std::string_view content, bool literal) {
  std::string ascii;
  bool escape = false;  // behind a backslash that begins one
  for (std::size_t at = 0; at < content.size();) {
    const std::string_view character = content.substr(at, Utf8_Length(content.substr(at)));
    if (literal && (character == "\"" || character == "\\")) ascii += '\\';
    if (escape && !Is_Ascii(character)) ascii += '?';  // no escape begins so: left to the parser
    ascii += Is_Ascii(character) ? std::string(character) : Escape_Of(character);
    escape = !literal && !escape && character == "\\";
    at += character.size();
  }
  return ascii;
}

/// A string with its quotes, as it stands if it is ASCII, else in double quotes with escapes.
std::string Ascii_String(std::string_view string) {
  if (Is_Ascii(string)) return std::string(string);
  const bool literal = string.front() == '\'';
  const std::size_t quotes = string.starts_with(std::string(3, string.front())) ? 3 : 1;
  const bool ended = string.ends_with(string.substr(0, quotes)) && string.size() >= 2 * quotes;
  const std::size_t length = string.size() - quotes - (ended ? quotes : 0);
  return std::string(quotes, '"') + Ascii_Content(string.substr(quotes, length), literal) +
         std::string(ended ? quotes : 0, '"');
}

/// The same table as a text of ASCII alone, line by line: strings with escapes, such comments
/// empty. The parser is at a loss with other letters where it looks for white space. Refused for
/// one that stands outside strings and comments.
std::string Ascii_Text(std::string_view text, const std::string& name) {
  std::string ascii;
  for (std::size_t at = 0; at < text.size();) {
    std::string_view part = text.substr(at, 1);
    if (part == "#") {
      part = text.substr(at, text.find('\n', at) - at);
      ascii += Is_Ascii(part) ? part : std::string_view("#");
    } else if (part == "\"" || part == "'") {
      part = text.substr(at, String_Length(text.substr(at)));
      ascii += Ascii_String(part);
    } else if (Is_Ascii(part)) {
      ascii += part;
    } else {
      Refuse(name, "a letter that is not ASCII outside of a string", Line_Of(text, at));
    }
    at += part.size();
  }
  return ascii;
}

bool Fails_An_Assertion(std::string_view text) {
  try {
    (void)toml::parse(text);
  } catch (const TomlAssertion&) {
    return true;
  } catch (const toml::parse_error&) {
    return false;
  }
  return false;
}

/// The line, from 1, at which the parser of this text fails an assertion: the last one of the
/// shortest text that does. The parser goes no further than to its first failure, so longer ones do
/// as well.
std::size_t Line_Of_Assertion(std::string_view text) {
  std::vector<std::size_t> ends;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n') ends.push_back(i + 1);
  }
  const auto first = std::ranges::partition_point(
      ends, [&](std::size_t end) { return !Fails_An_Assertion(text.substr(0, end)); });
  return static_cast<std::size_t>(first - ends.begin()) + 1;
}

}  // namespace

toml::table Parse_Toml(std::string_view text, const std::string& name) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  Check_Characters(text, name);
  const std::string ascii = Ascii_Text(text, name);
  try {
    return toml::parse(ascii, name);
  } catch (const TomlAssertion&) {
    Refuse(name, "a character or the end of the text where neither can be",
           Line_Of_Assertion(ascii));
  } catch (const toml::parse_error& error) {
    Refuse(name, error.description(), error.source().begin.line);
  }
}

}  // namespace sylvomex
