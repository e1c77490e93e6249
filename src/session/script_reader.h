// SPDX-License-Identifier: MIT
// Script syntax: one step a line, arguments separated by blanks (spaces, tabs). An argument
// that contains blanks stands in double quotes, "" inside is one quote, a backslash is an ordinary
// character. Blank lines and lines that start with '#' are skipped.
//
// Lines are counted from 1.
#pragma once

#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace sylvomex {

struct ScriptWord {
  std::string text;  // without its quotes
  std::string raw;   // as typed
};

struct ScriptStep {
  int line = 0;
  std::vector<ScriptWord> words;  // never empty; the first is the step's name
};

/// A line that cannot be split into words. what() is the reason.
class ScriptSyntaxError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The words of one line, none for a blank line or a comment. Throws ScriptSyntaxError.
std::vector<ScriptWord> Split_Line(std::string_view line);

/// A word in script syntax: quoted where necessary. Line breaks become blanks.
std::string Script_Word(std::string_view text);

class ScriptReader {
 public:
  explicit ScriptReader(std::istream& script) : script_(script) {}

  /// The next step; std::nullopt at the end of the script. Throws ScriptSyntaxError, also for a
  /// read error and for a line of more than 16,777,216 characters.
  std::optional<ScriptStep> Next();

  /// Number of the line read last.
  [[nodiscard]] int Line() const { return line_; }

 private:
  std::istream& script_;
  int line_ = 0;
};

}  // namespace sylvomex
