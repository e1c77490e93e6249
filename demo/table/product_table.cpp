// SPDX-License-Identifier: MIT
#include "demo/table/product_table.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <optional>
#include <sstream>

#include "demo/table/sample_statistics.h"
#include "demo/write/exact_text.h"
#include "platform/rounding.h"

namespace sylvomex::demo {
namespace {

constexpr int kReach = 10;  // cells about a target that are looked at

struct Gravity {
  double weight = 0, col = 0, row = 0;

  void Add(double light, double c, double r) {
    weight += light;
    col += light * c;
    row += light * r;
  }
};

Gravity Light_About(std::span<const std::uint8_t> cells, const OrthoGrid& grid, int col, int row) {
  Gravity gravity;
  for (int r = std::max(0, row - kReach); r <= std::min(grid.rows - 1, row + kReach); ++r) {
    for (int c = std::max(0, col - kReach); c <= std::min(grid.columns - 1, col + kReach); ++c) {
      const auto at = static_cast<std::size_t>(r) * static_cast<std::size_t>(grid.columns) +
                      static_cast<std::size_t>(c);
      gravity.Add(cells[at], c, r);
    }
  }
  return gravity;
}

std::string Axis_Line(const char* axis, const std::vector<double>& errors) {
  const SampleStatistics s = Statistics_Of(errors);
  return std::string(axis) + "  n " + std::to_string(s.n) + "  mean " + Fixed_Decimals(s.mean, 3) +
         "  RMS " + Fixed_Decimals(s.rms, 3) + "  largest " +
         Fixed_Decimals(s.largest_absolute, 3) + "\n";
}

/// A top of the session: "full" or "cut" and its true place.
struct NamedTop {
  std::string kind;
  Point3D top;
};

std::optional<NamedTop> Read_Say(const std::string& line) {
  std::istringstream words(line);
  std::string say;
  NamedTop named;
  words >> say >> named.kind >> named.top.X >> named.top.Y >> named.top.Z;
  if (!words || say != "say") return std::nullopt;
  return named;
}

std::optional<Point3D> Read_Solution(const std::string& line) {
  constexpr std::string_view kName = "Solution3D = ";
  if (!line.starts_with(kName)) return std::nullopt;
  std::istringstream words(line.substr(kName.size()));
  Point3D point;
  words >> point.X >> point.Y >> point.Z;
  return point;
}

double Largest_Difference(const Point3D& a, const Point3D& b) {
  return std::max({std::abs(a.X - b.X), std::abs(a.Y - b.Y), std::abs(a.Z - b.Z)});
}

double Squared_Distance(const Point3D& a, const Point3D& b) {
  return (a.X - b.X) * (a.X - b.X) + (a.Y - b.Y) * (a.Y - b.Y) + (a.Z - b.Z) * (a.Z - b.Z);
}

using TopPlace = std::pair<double, double>;

}  // namespace

TargetErrors Compare_Targets(std::span<const std::uint8_t> cells, const OrthoGrid& grid,
                             const std::vector<Point3D>& places) {
  TargetErrors errors;
  for (const Point3D& place : places) {
    const double col = (place.X - grid.X0) / grid.pixel - 1;
    const double row = (place.Y - grid.Y0) / grid.pixel - 1;
    const Gravity light = Light_About(cells, grid, To_Int32(col), To_Int32(row));
    if (light.weight == 0) {
      ++errors.missing;
      continue;
    }
    errors.columns.push_back(light.col / light.weight - col);
    errors.rows.push_back(light.row / light.weight - row);
  }
  return errors;
}

CutOutTable Compare_Cut_Outs(std::string_view transcript) {
  CutOutTable table;
  std::map<TopPlace, Point3D> full;
  double squares = 0;
  std::optional<NamedTop> named;
  std::istringstream text{std::string(transcript)};
  for (std::string line; std::getline(text, line);) {
    if (const auto said = Read_Say(line)) named = said;
    const auto solution = Read_Solution(line);
    if (!named || !solution) continue;
    const TopPlace place{named->top.X, named->top.Y};
    if (named->kind == "full") {
      full[place] = *solution;
      squares += Squared_Distance(*solution, named->top);
    } else if (const auto found = full.find(place); found != full.end()) {
      ++table.tops;
      table.largest_difference =
          std::max(table.largest_difference, Largest_Difference(*solution, found->second));
    }
    named.reset();
  }
  if (!full.empty()) table.rms_full = std::sqrt(squares / (3 * static_cast<double>(full.size())));
  return table;
}

double Zone_Excess(std::span<const std::uint8_t> mask, int id, double radius, double pixel) {
  const auto count = static_cast<double>(std::count(mask.begin(), mask.end(), id));
  const double wanted = std::numbers::pi * radius * radius / (pixel * pixel);
  return 100 * (count - wanted) / wanted;
}

double Covered_Share(std::span<const std::uint8_t> colour_cells) {
  std::size_t covered = 0;
  for (std::size_t k = 0; k + 2 < colour_cells.size(); k += 3) {
    covered += (colour_cells[k] | colour_cells[k + 1] | colour_cells[k + 2]) != 0 ? 1 : 0;
  }
  const std::size_t cells = colour_cells.size() / 3;
  return static_cast<double>(covered) / std::max(1.0, static_cast<double>(cells));
}

std::string Table_Text(const TargetErrors& errors) {
  std::string text = "targets in the orthoimage, found less expected, cells\n" +
                     Axis_Line("columns", errors.columns) + Axis_Line("rows   ", errors.rows);
  if (errors.missing > 0) text += "missing " + std::to_string(errors.missing) + "\n";
  return text;
}

std::string Table_Text(const CutOutTable& table) {
  return "tree tops in cut-outs: " + std::to_string(table.tops) +
         ", largest difference from the full images " +
         Fixed_Decimals(table.largest_difference, 6) + " m, RMS of these from the true tops " +
         Fixed_Decimals(table.rms_full, 3) + " m\n";
}

std::vector<std::uint8_t> North_Up(std::span<const std::uint8_t> cells, const OrthoGrid& grid) {
  const std::size_t row_bytes = 3 * static_cast<std::size_t>(grid.columns);
  std::vector<std::uint8_t> turned(cells.size());
  const auto rows = static_cast<std::size_t>(grid.rows);
  for (std::size_t row = 0; row < rows; ++row) {
    std::copy_n(cells.begin() + static_cast<std::ptrdiff_t>(row * row_bytes), row_bytes,
                turned.begin() + static_cast<std::ptrdiff_t>((rows - 1 - row) * row_bytes));
  }
  return turned;
}

std::string Map_Header_Text(const std::string& raw_name, const OrthoGrid& grid, int shift) {
  const std::string pixel = Exact_Text(grid.pixel);
  return "\"" + raw_name + "\"\n" + Exact_Text(grid.X0 + (shift - 1) * grid.pixel) + "\n" +
         Exact_Text(grid.Y0 + shift * grid.pixel) + "\n" + pixel + "\n" + pixel + "\n" +
         std::to_string(grid.columns) + "\n" + std::to_string(grid.rows) + "\n1\n";
}

}  // namespace sylvomex::demo
