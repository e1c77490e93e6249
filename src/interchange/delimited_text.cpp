// SPDX-License-Identifier: MIT
#include "interchange/delimited_text.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "interchange/failures.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

bool Same_Name(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

char Separator_Of(std::string_view header) {
  for (const char separator : {',', ';', '\t'}) {
    if (header.find(separator) != std::string_view::npos) return separator;
  }
  return ',';
}

std::vector<std::string> Values_Of(std::string_view line, char separator) {
  std::vector<std::string> values(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') {
      if (quoted && i + 1 < line.size() && line[i + 1] == '"') {
        values.back() += line[++i];
      } else {
        quoted = !quoted;
      }
    } else if (line[i] == separator && !quoted) {
      values.emplace_back();
    } else {
      values.back() += line[i];
    }
  }
  for (std::string& value : values) value = std::string(Without_Blanks_Around(value));
  return values;
}

std::string_view Take_Line(std::string_view& rest) {
  const std::size_t end = std::min(rest.find('\n'), rest.size());
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

DelimitedText::DelimitedText(std::string_view content, const std::string& name) : name_(name) {
  if (content.starts_with("\xEF\xBB\xBF")) content.remove_prefix(3);
  char separator = ',';
  for (std::size_t number = 1; !content.empty(); ++number) {
    const std::string_view line = Take_Line(content);
    if (Without_Blanks_Around(line).empty()) continue;
    if (columns_.empty()) {
      separator = Separator_Of(line);
      columns_ = Values_Of(line, separator);
      continue;
    }
    rows_.push_back({number, Values_Of(line, separator)});
    if (rows_.back().values.size() != columns_.size()) {
      throw Refused(Where(rows_.size() - 1) + ": " + std::to_string(rows_.back().values.size()) +
                    " values for " + std::to_string(columns_.size()) + " columns");
    }
  }
  if (columns_.empty()) throw Refused(name_ + ": the file is empty");
}

std::optional<std::size_t> DelimitedText::Find_Column(std::string_view name) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (Same_Name(columns_[i], name)) return i;
  }
  return std::nullopt;
}

std::size_t DelimitedText::Column(std::string_view name) const {
  if (const auto column = Find_Column(name)) return *column;
  throw Refused(name_ + ": there is no column \"" + std::string(name) + "\"");
}

double DelimitedText::Number(std::size_t row, std::size_t column) const {
  const std::string& text = Text(row, column);
  try {
    const double value = Parse_Double(text);
    if (std::isfinite(value)) return value;
  } catch (const RunTimeError&) {  // told below
  }
  throw Refused(Where(row) + ", column " + columns_[column] + ": " + Quoted_For_Message(text) +
                " is no number");
}

std::string DelimitedText::Where(std::size_t row) const {
  return name_ + ", line " + std::to_string(rows_[row].line);
}

}  // namespace sylvomex
