// SPDX-License-Identifier: MIT
#include "overlays/commands/observation_points.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::size_t kScanned = 100;  // characters of a line
constexpr double kLeastX = 1.0;        // a point without a solution has X 0

using Fields = std::array<std::string_view, 4>;

std::optional<Fields> Split_Fields(std::string_view line) {
  line = line.substr(0, kScanned);
  Fields fields;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (begin > line.size()) return std::nullopt;
    const std::size_t end = std::min(line.find(',', begin), line.size());
    fields[i] = line.substr(begin, end - begin);
    begin = end + 1;
  }
  return fields;
}

// Nothing for a line that is to be passed over.
std::optional<ObservationPoint> Point_Of_Line(std::string_view line) {
  const std::optional<Fields> fields = Split_Fields(line);
  if (!fields) throw RunTimeError(Failure::BadContent, "number, X, Y and Z are wanted");
  ObservationPoint point;
  point.X = Parse_Double((*fields)[1]);
  if (point.X <= kLeastX) return std::nullopt;
  point.number = Parse_Int16((*fields)[0]);
  point.Y = Parse_Double((*fields)[2]);
  point.Z = Parse_Double((*fields)[3]);
  return point;
}

bool Is_Blank(std::string_view line) {
  return line.find_first_not_of(" \t") == std::string_view::npos;
}

// The same failure with the place where it happened.
[[noreturn]] void Fail_At(const FilePath& file, int line_number, const RunTimeError& error) {
  throw error.At(file.name + ", line " + std::to_string(line_number), file.native);
}

}  // namespace

std::vector<ObservationPoint> Read_Observation_Points(const FilePath& file) {
  const std::string content = Read_Whole_File(file);
  std::vector<ObservationPoint> points;
  std::string_view rest = content;
  for (int line_number = 1; !rest.empty(); ++line_number) {
    const std::size_t length = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, length);
    if (line.ends_with('\r')) line.remove_suffix(1);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    if (Is_Blank(line)) continue;
    try {
      if (const auto point = Point_Of_Line(line)) points.push_back(*point);
    } catch (const RunTimeError& error) {
      Fail_At(file, line_number, error);
    }
  }
  return points;
}

}  // namespace sylvomex
