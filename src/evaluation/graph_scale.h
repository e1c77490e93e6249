// SPDX-License-Identifier: MIT
// Mapping of values to positions in the panes of the evaluation. Pane positions px, py in pixels,
// px to the right, py downward; values of a graph x to the right, y upward.
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

/// Distance of the axes from the edges of a pane, pixels.
inline constexpr double kAxisMargin = 20;

/// A linear scale on both axes: the pane position of the value (x0, y0), and the pixels per unit.
struct GraphScale {
  double x0 = 0, y0 = 0;
  double px0 = 0, py0 = 0;
  double pixels_x = 1, pixels_y = 1;

  [[nodiscard]] GraphPosition At(double x, double y) const {
    return {px0 + (x - x0) * pixels_x, py0 - (y - y0) * pixels_y};
  }
};

/// Errors over heights, metres: the pane's height is 30 m on both axes, height 0 lies on the left
/// axis, error 0 in the middle of the pane.
GraphScale Error_Scale(const GraphSize& pane);

/// Counts over heights: heights as in Error_Scale, counts upwards from the bottom axis with the
/// given pixels per count.
GraphScale Height_Count_Scale(const GraphSize& pane, double pixels_a_count);

/// Plan of a circular plot, metres, north up: the plot and a margin of 1 m fill the pane's width.
GraphScale Plan_Scale(const GraphSize& pane, double centre_x, double centre_y, double radius);

struct Interval {
  double low = 0, high = 0;
};

/// Any values: the intervals fill the space between the axes and the pane's edges; left_room more
/// pixels are left free right of the left axis for its labels, top_room below the upper edge.
GraphScale Value_Scale(const GraphSize& pane, const Interval& x, const Interval& y,
                       double left_room, double top_room);

/// 1, 2 or 5 times a power of ten: the smallest such step that divides range into at most `most`
/// parts. 1 when range is not a positive finite number.
double Tick_Step(double range, int most);

/// The multiples of step in the interval, ascending; none for a step of 0 or less, and none when
/// there would be more than 1000.
std::vector<double> Ticks(const Interval& interval, double step);

/// The smallest interval that contains all values and ends at multiples of the tick step for that
/// many parts; equal values get one unit on either side. {0, 1} without values.
Interval Rounded_Out(std::span<const double> values, int parts);

}  // namespace sylvomex
