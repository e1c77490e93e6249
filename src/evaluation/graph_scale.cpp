// SPDX-License-Identifier: MIT
#include "evaluation/graph_scale.h"

#include <algorithm>
#include <cmath>

namespace sylvomex {
namespace {

constexpr double kMetresOfAPane = 30;
constexpr double kMostTicks = 1000;

}  // namespace

GraphScale Error_Scale(const GraphSize& pane) {
  const double scale = pane.height / kMetresOfAPane;
  return {0, 0, kAxisMargin, pane.height / 2, scale, scale};
}

GraphScale Height_Count_Scale(const GraphSize& pane, double pixels_a_count) {
  const double scale = pane.height / kMetresOfAPane;
  return {0, 0, kAxisMargin, pane.height - kAxisMargin, scale, pixels_a_count};
}

GraphScale Plan_Scale(const GraphSize& pane, double centre_x, double centre_y, double radius) {
  const double scale = pane.width / (2 * radius + 2.0);
  return {centre_x, centre_y, pane.width / 2, pane.height / 2, scale, scale};
}

GraphScale Value_Scale(const GraphSize& pane, const Interval& x, const Interval& y,
                       double left_room, double top_room) {
  const double left = kAxisMargin + left_room;
  const double bottom = pane.height - kAxisMargin;
  return {x.low,
          y.low,
          left,
          bottom,
          (pane.width - kAxisMargin - left) / (x.high - x.low),
          (bottom - top_room) / (y.high - y.low)};
}

double Tick_Step(double range, int most) {
  const double least = range / most;
  if (!(least > 0) || !std::isfinite(least)) return 1;
  const double decade = std::pow(10.0, std::floor(std::log10(least)));
  for (const double multiple : {1.0, 2.0, 5.0}) {
    if (multiple * decade >= least) return multiple * decade;
  }
  return 10 * decade;
}

std::vector<double> Ticks(const Interval& interval, double step) {
  const double first = std::ceil(interval.low / step);
  const double last = std::floor(interval.high / step);
  if (!(step > 0) || !(last - first < kMostTicks)) return {};
  std::vector<double> ticks(static_cast<std::size_t>(std::max(last - first + 1, 0.0)));
  for (std::size_t k = 0; k < ticks.size(); ++k) ticks[k] = (first + static_cast<double>(k)) * step;
  return ticks;
}

Interval Rounded_Out(std::span<const double> values, int parts) {
  if (values.empty()) return {0, 1};
  const auto [least, most] = std::ranges::minmax(values);
  if (!(most > least)) return {least - 1, most + 1};
  const double step = Tick_Step(most - least, parts);
  return {std::floor(least / step) * step, std::ceil(most / step) * step};
}

}  // namespace sylvomex
