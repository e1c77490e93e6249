// SPDX-License-Identifier: MIT
#include "surfaces/image_grid.h"

#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

std::vector<double> Steps_Up(double first, double last, double step) {
  std::vector<double> values;
  double value = first;
  while (value <= last) {
    values.push_back(value);
    value += step;
  }
  return values;
}

std::vector<double> Steps_Down(double first, double last, double step) {
  std::vector<double> values;
  double value = first;
  while (value >= last) {
    values.push_back(value);
    value -= step;
  }
  return values;
}

/// Far from the origin a double no longer tells neighbouring grid lines apart.
void Require_Distinct_Steps(double first, double last, double spacing) {
  if (first + spacing > first && last + spacing > last) return;
  throw RunTimeError(Failure::BadContent, "grid lines every " + Plain_Text(spacing) +
                                              " m of film fall together at " + Plain_Text(first) +
                                              ": the start point lies too far out");
}

}  // namespace

std::vector<FilmPosition> Grid_Positions(const GridSettings& grid, const FilmPosition& start,
                                         double scale_number) {
  if (!(scale_number > 0)) {
    throw RunTimeError(Failure::BadContent, "the scale number at the start height is " +
                                                Plain_Text(scale_number) +
                                                ": the start lies above the camera");
  }
  const double half_width = grid.width / 2 / scale_number;
  const double half_height = grid.height / 2 / scale_number;
  const double spacing = grid.spacing / scale_number;
  const bool centred = grid.placing == Placing::Centred;
  const double left = centred ? start.x - half_width : start.x;
  const double right = centred ? start.x + half_width : start.x + 2 * half_width;
  const double bottom = centred ? start.y - half_height : start.y - 2 * half_height;
  const double top = centred ? start.y + half_height : start.y;
  Require_Distinct_Steps(left, right, spacing);
  Require_Distinct_Steps(bottom, top, spacing);
  const std::vector<double> up = Steps_Up(bottom, top, spacing);
  const std::vector<double> down = Steps_Down(top, bottom, spacing);
  std::vector<FilmPosition> positions;
  int column = 0;
  for (const double x : Steps_Up(left, right, spacing)) {
    ++column;
    const bool falls = grid.serpentine && column % 2 == 1;
    for (const double y : falls ? down : up) positions.push_back({x, y});
  }
  return positions;
}

}  // namespace sylvomex
