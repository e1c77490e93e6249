// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sylvomex {

/// A table as text: a header line, then one row a line; values between commas (or semicolons or
/// tabs, where the header line has one and no comma), which may stand in double quotes. Empty lines
/// are passed over. Refusals name the file, the line and the column.
class DelimitedText {
 public:
  /// name: the file in messages. Refused for a text without a header line and for a row with
  /// another number of values.
  DelimitedText(std::string_view content, const std::string& name);

  [[nodiscard]] std::size_t Rows() const { return rows_.size(); }
  [[nodiscard]] const std::vector<std::string>& Columns() const { return columns_; }

  /// The index of a column, found without regard to case.
  [[nodiscard]] std::optional<std::size_t> Find_Column(std::string_view name) const;
  /// The same; Refused when there is none.
  [[nodiscard]] std::size_t Column(std::string_view name) const;

  [[nodiscard]] const std::string& Text(std::size_t row, std::size_t column) const {
    return rows_[row].values[column];
  }
  /// Refused for what is no finite number.
  [[nodiscard]] double Number(std::size_t row, std::size_t column) const;

  /// "<file>, line <n>" of a row.
  [[nodiscard]] std::string Where(std::size_t row) const;

 private:
  struct Row {
    std::size_t line = 0;
    std::vector<std::string> values;
  };
  std::string name_;
  std::vector<std::string> columns_;
  std::vector<Row> rows_;
};

}  // namespace sylvomex
