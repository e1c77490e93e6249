// SPDX-License-Identifier: MIT
#include "session/script_reader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace sylvomex {

namespace {

constexpr std::size_t kUsualWords = 4;  // in a line
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestLine = std::size_t{1}
                                     << 24U;  // characters: a device may never end one

bool Is_Blank(char c) { return c == ' ' || c == '\t'; }

ScriptWord Take_Quoted(std::string_view line, std::size_t& position) {
  const std::size_t start = position++;
  ScriptWord word;
  for (;; ++position) {
    if (position >= line.size()) throw ScriptSyntaxError("a quoted text has no closing quote");
    if (line[position] == '"') {
      if (position + 1 >= line.size() || line[position + 1] != '"') break;
      ++position;
    }
    word.text += line[position];
  }
  ++position;
  if (position < line.size() && !Is_Blank(line[position])) {
    throw ScriptSyntaxError("a blank is missing after a closing quote");
  }
  word.raw = line.substr(start, position - start);
  return word;
}

/// Index of the first character from `position` on that is a blank (or, for false, that is none);
/// the line's size where there is no such one. The standard library's searches cost a call a
/// character.
std::size_t Find(bool blank, std::string_view line, std::size_t position) {
  while (position < line.size() && Is_Blank(line[position]) != blank) ++position;
  return position;
}

ScriptWord Take_Bare(std::string_view line, std::size_t& position) {
  const std::size_t end = Find(true, line, position);
  const std::string text(line.substr(position, end - position));
  position = end;
  return {text, text};
}

/// The next line, of which no more than one piece beyond the longest is read. False at the end.
bool Take_Line(std::istream& script, std::string& line) {
  std::array<char, 4096> piece;  // with the NUL behind it
  line.clear();
  while (line.size() <= kLongestLine) {
    script.getline(piece.data(), piece.size());
    const auto count = static_cast<std::size_t>(script.gcount());
    if (script.good()) {  // the line's end counts as a character
      line.append(piece.data(), count - 1);
      return true;
    }
    line.append(piece.data(), count);
    if (script.bad() || script.eof()) return !script.bad() && !line.empty();
    script.clear();  // the piece is full
  }
  return true;
}

}  // namespace

std::vector<ScriptWord> Split_Line(std::string_view line) {
  std::vector<ScriptWord> words;
  words.reserve(kUsualWords);
  if (line.ends_with('\r')) line.remove_suffix(1);
  std::size_t position = Find(false, line, 0);
  if (position < line.size() && line[position] == '#') return words;
  while (position < line.size()) {
    words.push_back(line[position] == '"' ? Take_Quoted(line, position)
                                          : Take_Bare(line, position));
    position = Find(false, line, position);
  }
  return words;
}

std::string Script_Word(std::string_view text) {
  const bool bare = !text.empty() && text.find_first_of(" \t\r\n\"") == std::string_view::npos;
  if (bare) return std::string(text);
  std::string word = "\"";
  for (const char c : text) {
    if (c == '"') word += '"';
    word += c == '\r' || c == '\n' ? ' ' : c;
  }
  return word + '"';
}

std::optional<ScriptStep> ScriptReader::Next() {
  std::string line;
  while (Take_Line(script_, line)) {
    ++line_;
    if (line.size() > kLongestLine) {
      throw ScriptSyntaxError("the line is longer than " + std::to_string(kLongestLine) +
                              " characters");
    }
    if (line_ == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    std::vector<ScriptWord> words = Split_Line(line);
    if (!words.empty()) return ScriptStep{line_, std::move(words)};
  }
  if (script_.bad()) throw ScriptSyntaxError("the script cannot be read any further");
  return std::nullopt;
}

}  // namespace sylvomex
