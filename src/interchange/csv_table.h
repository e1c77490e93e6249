// SPDX-License-Identifier: MIT
// Text tables: one row a line, cells separated by commas, semicolons, tabs or, where none of these
// stands in the first row, blanks. A row without the first one's separator has one of its own, and
// so has every comment ('#'): column names by commas may stand over rows by tabs. A cell may stand
// in double quotes, "" inside is one quote. Line ends are LF, CR LF or CR; empty lines are skipped;
// a byte order mark is skipped.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sylvomex {

struct TextRow {
  int line = 0;                    // counted from 1
  std::vector<std::string> cells;  // without blanks around them
};

/// The rows of a text. Refused for a text with bytes that no text holds. name: the file in
/// messages.
std::vector<TextRow> Split_Rows(std::string_view text, const std::string& name);

/// A table whose first row names its columns. Names are compared without regard to case.
class CsvTable {
 public:
  /// Refused for a text without a row or with a name that stands twice among `columns` asked for
  /// later.
  CsvTable(std::string_view text, const std::string& name);
  CsvTable(std::vector<TextRow> rows, std::string name);

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::vector<TextRow>& Rows() const { return rows_; }
  [[nodiscard]] bool Has(std::string_view column) const { return Find(column).has_value(); }
  /// The first of several names that is a column.
  [[nodiscard]] std::optional<std::string> First_Of(const std::vector<std::string>& columns) const;

  /// The cell of a row. Refused when the column is missing or the row is too short.
  [[nodiscard]] std::string Text(const TextRow& row, std::string_view column) const;
  /// A finite number. Refused for anything else, with line and column.
  [[nodiscard]] double Number(const TextRow& row, std::string_view column) const;
  /// A whole number from low to high.
  [[nodiscard]] int Whole(const TextRow& row, std::string_view column, int low, int high) const;
  /// std::nullopt where the column is missing or the cell is empty.
  [[nodiscard]] std::optional<double> Optional_Number(const TextRow& row,
                                                      std::string_view column) const;
  [[nodiscard]] std::string Optional_Text(const TextRow& row, std::string_view column) const;

  /// A refusal that names the file and the line.
  [[noreturn]] void Refuse(const TextRow& row, const std::string& cause) const;

 private:
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view column) const;

  std::string name_;
  std::vector<std::string> columns_;  // in lower case
  std::vector<TextRow> rows_;
};

/// In lower case; letters of ASCII only.
std::string Lower(std::string_view text);

/// A whole file as text. Refused when it cannot be read or is larger than any table (256 MB).
std::string Read_Text_File(const std::string& file);

/// A finite number, or std::nullopt.
std::optional<double> Finite_Number(std::string_view text);

}  // namespace sylvomex
