// SPDX-License-Identifier: MIT
// From values to positions in the panes of the evaluation. Pane positions px, py in pixels, px to
// the right, py downward; values of a graph x to the right, y upward.
#pragma once

#include <span>
#include <vector>

namespace sylvomex {

struct GraphSize {
  double width = 0, height = 0;
};

struct GraphPosition {
  double px = 0, py = 0;
};

/// Distance of the axes from the edges of a pane.
inline constexpr double kAxisMargin = 20;

/// A linear scale on both axes: where the value (x, y) = (x0, y0) stands, and pixels a unit.
struct GraphScale {
  double x0 = 0, y0 = 0;
  double px0 = 0, py0 = 0;
  double pixels_x = 1, pixels_y = 1;

  [[nodiscard]] GraphPosition At(double x, double y) const {
    return {px0 + (x - x0) * pixels_x, py0 - (y - y0) * pixels_y};
  }
};

/// Errors over heights, metres: the height of the pane is 30 m on both axes, height 0 stands on the
/// axis at the left, error 0 in the middle.
GraphScale Error_Scale(const GraphSize& pane);

/// Counts over heights: heights as in Error_Scale, counts from the axis at the bottom with so many
/// pixels each.
GraphScale Height_Count_Scale(const GraphSize& pane, double pixels_a_count);

/// A plan of a circular plot, metres, north up: the plot and a metre around it fill the width.
GraphScale Plan_Scale(const GraphSize& pane, double centre_x, double centre_y, double radius);

struct Interval {
  double low = 0, high = 0;
};

/// Values of any kind: the intervals fill the room between the axes and the edges; left_room more
/// pixels are kept right of the left axis for its labels, top_room below the upper edge.
GraphScale Value_Scale(const GraphSize& pane, const Interval& x, const Interval& y,
                       double left_room, double top_room);

/// 1, 2 or 5 times a power of ten: the least step that divides range into at most so many parts. 1
/// for a range that is no positive number.
double Tick_Step(double range, int most);

/// The multiples of step in the interval, ascending, none for a step of 0 or less. An interval of
/// more than 1000 of them gives none.
std::vector<double> Ticks(const Interval& interval, double step);

/// The least interval that holds all values and ends at multiples of its own tick step for so many
/// parts; values without extent get a unit to either side. {0, 1} for no values.
Interval Rounded_Out(std::span<const double> values, int parts);

}  // namespace sylvomex
