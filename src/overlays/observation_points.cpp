// SPDX-License-Identifier: MIT
#include "overlays/observation_points.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/many_steps.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::size_t kScanned = 100;  // leading characters of a line scanned for commas
constexpr double kLeastX = 1.0;        // a point without a solution has X 0

// One line: number, X, Y, Z, and more that is not used.
class PointLine {
 public:
  PointLine(std::string_view text, const FilePath& file, int line_number)
      : file_(file), line_number_(line_number) {
    std::size_t begin = 0;
    for (std::size_t i = 0; i + 1 < fields_.size(); ++i) {
      const std::size_t comma = text.substr(0, kScanned).find(',', begin);
      if (comma == std::string_view::npos) {
        throw RunTimeError(
            Failure::BadContent,
            Place(i + 1) +
                ": number, X, Y and Z are wanted, with commas in the first 100 characters",
            file_.native);
      }
      fields_[i] = text.substr(begin, comma - begin);
      begin = comma + 1;
    }
    fields_.back() = text.substr(begin, text.find(',', begin) - begin);
  }

  /// Item at a position counted from 0, converted by a parser of number_text.h.
  template <class Number>
  [[nodiscard]] Number Item(std::size_t item, Number (*parse)(std::string_view)) const {
    try {
      return parse(fields_[item]);
    } catch (const RunTimeError& error) {
      throw error.At(Place(item), file_.native);
    }
  }

 private:
  [[nodiscard]] std::string Place(std::size_t item) const {
    return file_.name + ", line " + std::to_string(line_number_) + ", item " +
           std::to_string(item + 1);
  }

  const FilePath& file_;
  int line_number_;
  std::array<std::string_view, 4> fields_;
};

// std::nullopt for a line to be skipped.
std::optional<ObservationPoint> Point_Of_Line(const PointLine& line) {
  ObservationPoint point;
  point.at.X = line.Item(1, Parse_Double);
  if (point.at.X <= kLeastX) return std::nullopt;
  point.number = line.Item(0, Parse_Int16);
  point.at.Y = line.Item(2, Parse_Double);
  point.at.Z = line.Item(3, Parse_Double);
  return point;
}

bool Is_Blank(std::string_view line) {
  return line.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace

std::vector<ObservationPoint> Read_Observation_Points(const FilePath& file) {
  const std::string content = Read_Whole_File(file);
  std::vector<ObservationPoint> points;
  std::string_view rest = content;
  ManySteps steps(static_cast<double>(std::ranges::count(content, '\n')));
  for (int line_number = 1; !rest.empty(); ++line_number) {
    steps.Step();
    const std::size_t length = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, length);
    if (line.ends_with('\r')) line.remove_suffix(1);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    if (Is_Blank(line)) continue;
    if (const auto point = Point_Of_Line({line, file, line_number})) points.push_back(*point);
  }
  return points;
}

}  // namespace sylvomex
