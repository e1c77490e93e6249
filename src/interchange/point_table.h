// SPDX-License-Identifier: MIT
// Points with their fields, as they leave a site.
#pragma once

#include <limits>
#include <string>
#include <variant>
#include <vector>

#include "platform/point3d.h"

namespace sylvomex {

enum class ColumnKind { Integer, Real, Text };

struct PointColumn {
  std::string name;
  ColumnKind kind = ColumnKind::Real;
};

/// A number, a text, or nothing.
using PointCell = std::variant<std::monostate, double, std::string>;

struct PointRow {
  Point3D at;  // world metres
  std::vector<PointCell> cells;
};

/// Rows may have less cells than there are columns; the others are empty.
struct PointTable {
  std::vector<PointColumn> columns;
  std::vector<PointRow> rows;
};

}  // namespace sylvomex
