// SPDX-License-Identifier: MIT
#include "interchange/csv_table.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "interchange/failures.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::uintmax_t kLargestTable = 256U << 20U;  // bytes
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char Separator_Of(std::string_view line) {
  for (const char candidate : {'\t', ';', ','}) {
    if (line.find(candidate) != std::string_view::npos) return candidate;
  }
  return ' ';
}

std::string Trimmed(std::string_view text) { return std::string(Without_Blanks_Around(text)); }

/// A cell in quotes from its opening quote on; leaves `position` behind the closing one.
std::string Quoted(std::string_view line, std::size_t& position) {
  std::string cell;
  for (++position; position < line.size(); ++position) {
    if (line[position] == '"') {
      if (position + 1 >= line.size() || line[position + 1] != '"') break;
      ++position;
    }
    cell += line[position];
  }
  if (position < line.size()) ++position;
  return cell;
}

std::size_t Skip(std::string_view line, std::size_t position, std::string_view what) {
  return std::min(line.find_first_not_of(what, position), line.size());
}

std::vector<std::string> Split_Line(std::string_view line, char separator) {
  std::vector<std::string> cells;
  const std::string_view ends = separator == ' ' ? " \t" : std::string_view(&separator, 1);
  std::size_t position = 0;
  for (;;) {
    position = Skip(line, position, separator == '\t' ? " " : " \t");
    const bool is_quoted = position < line.size() && line[position] == '"';
    std::string cell = is_quoted ? Quoted(line, position) : std::string();
    const std::size_t end = std::min(line.find_first_of(ends, position), line.size());
    if (!is_quoted) cell = Trimmed(line.substr(position, end - position));
    cells.push_back(std::move(cell));
    if (end == line.size()) return cells;
    position = separator == ' ' ? Skip(line, end, ends) : end + 1;
    if (separator == ' ' && position == line.size()) return cells;
  }
}

}  // namespace

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::optional<double> Finite_Number(std::string_view text) try {
  const double value = Parse_Double(text);
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
} catch (const RunTimeError&) {
  return std::nullopt;
}

std::string Read_Text_File(const std::string& file) {
  std::error_code error;
  const auto bytes = std::filesystem::file_size(file, error);
  if (error) throw Refused(file + ": the file cannot be read: " + error.message());
  if (bytes > kLargestTable) throw Refused(file + ": the file is too large for a table");
  try {
    return Read_Whole_File({file, file});
  } catch (const RunTimeError& failure) {
    throw Refused(failure.what());
  }
}

std::vector<TextRow> Split_Rows(std::string_view text, const std::string& name) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (text.find('\0') != std::string_view::npos) throw Refused(name + ": the file is no text");
  std::vector<TextRow> rows;
  char separator = 0;
  for (int line = 1; !text.empty(); ++line) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view content = text.substr(0, end);
    const bool is_pair = text.substr(end).starts_with("\r\n");
    text.remove_prefix(std::min(text.size(), end + (is_pair ? 2 : 1)));
    if (Without_Blanks_Around(content).empty()) continue;
    const bool is_comment = content[Skip(content, 0, " \t")] == '#';
    if (separator == 0 && !is_comment) separator = Separator_Of(content);
    const bool is_like_the_first = !is_comment && content.find(separator) != std::string_view::npos;
    rows.push_back(
        {line, Split_Line(content, is_like_the_first ? separator : Separator_Of(content))});
  }
  return rows;
}

CsvTable::CsvTable(std::string_view text, const std::string& name)
    : CsvTable(Split_Rows(text, name), name) {}

CsvTable::CsvTable(std::vector<TextRow> rows, std::string name)
    : name_(std::move(name)), rows_(std::move(rows)) {
  if (rows_.empty())
    throw Refused(name_ + ": the table is empty, not even its header line is there");
  for (const std::string& column : rows_.front().cells) columns_.push_back(Lower(column));
  rows_.erase(rows_.begin());
}

std::optional<std::size_t> CsvTable::Find(std::string_view column) const {
  const auto found = std::find(columns_.begin(), columns_.end(), Lower(column));
  if (found == columns_.end()) return std::nullopt;
  if (std::find(found + 1, columns_.end(), *found) != columns_.end()) {
    throw Refused(name_ + ": the column \"" + *found + "\" stands twice in the header line");
  }
  return static_cast<std::size_t>(found - columns_.begin());
}

std::optional<std::string> CsvTable::First_Of(const std::vector<std::string>& columns) const {
  for (const std::string& column : columns) {
    if (Has(column)) return column;
  }
  return std::nullopt;
}

void CsvTable::Refuse(const TextRow& row, const std::string& cause) const {
  throw Refused(name_ + ", line " + std::to_string(row.line) + ": " + cause);
}

std::string CsvTable::Text(const TextRow& row, std::string_view column) const {
  const std::optional<std::size_t> index = Find(column);
  if (!index) throw Refused(name_ + ": the column \"" + std::string(column) + "\" is missing");
  if (*index >= row.cells.size()) Refuse(row, "the line ends before " + std::string(column));
  return row.cells[*index];
}

double CsvTable::Number(const TextRow& row, std::string_view column) const {
  const std::string text = Text(row, column);
  const std::optional<double> value = Finite_Number(text);
  if (!value) Refuse(row, std::string(column) + " is " + Quoted_For_Message(text) + ", no number");
  return *value;
}

int CsvTable::Whole(const TextRow& row, std::string_view column, int low, int high) const {
  const double value = Number(row, column);
  if (value != std::floor(value) || value < low || value > high) {
    Refuse(row, std::string(column) + " is " + Text(row, column) + ", not a whole number from " +
                    std::to_string(low) + " to " + std::to_string(high));
  }
  return static_cast<int>(value);
}

std::optional<double> CsvTable::Optional_Number(const TextRow& row, std::string_view column) const {
  if (Optional_Text(row, column).empty()) return std::nullopt;
  return Number(row, column);
}

std::string CsvTable::Optional_Text(const TextRow& row, std::string_view column) const {
  const std::optional<std::size_t> index = Find(column);
  return index && *index < row.cells.size() ? row.cells[*index] : std::string();
}

}  // namespace sylvomex
