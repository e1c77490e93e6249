// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/point3d.h"

namespace sylvomex {

/// The rows of a table or of the first layer of a vector file, their values as text.
struct VectorTable {
  struct Row {
    std::string where;  // "<file>, line 3" or "<file>, feature 2"
    std::vector<std::string> values;
    std::optional<Point3D> at;  // of a point, in the site's system
  };
  std::string name;
  std::vector<std::string> columns;
  std::vector<Row> rows;

  /// The index of a column, found without regard to case; Refused when there is none.
  [[nodiscard]] std::size_t Column(std::string_view name) const;
};

/// Reads ".csv" and ".txt" as text with a header line, anything else by GDAL. Points are brought to
/// the system `site`. Refused, naming the file, for what cannot be read, and for points without a
/// coordinate system.
VectorTable Read_Vector_Table(const std::filesystem::path& file, const std::string& site);

}  // namespace sylvomex
