// SPDX-License-Identifier: MIT
#include "panes/mark_shapes.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace sylvomex {
namespace {

constexpr int kMaxPenWidth = 1000;
constexpr double kFarOutside = 1e6;  // pixels

/// Clips the parameter interval [first, last] of a line to where from + t * step lies in [low,
/// high]; false when nothing remains.
bool Clip_Axis(double from, double step, double low, double high, double& first, double& last) {
  if (step == 0) return from >= low && from <= high;
  double enter = (low - from) / step;
  double leave = (high - from) / step;
  if (enter > leave) std::swap(enter, leave);
  first = std::max(first, enter);
  last = std::min(last, leave);
  return first <= last;
}

/// Coordinate of step k of `steps` along one axis: nearest integer to from + k * (to - from) /
/// steps.
int Position_At(int from, int to, int k, int steps) {
  const int twice = 2 * k * std::abs(to - from) + steps;
  const int way = twice / (2 * steps);
  return to >= from ? from + way : from - way;
}

}  // namespace

std::uint32_t Pixel_Of(Colour colour) {
  return 0xff000000U | std::uint32_t{colour.r} << 16U | std::uint32_t{colour.g} << 8U | colour.b;
}

std::uint32_t Joined(PenMode mode, std::uint32_t pen, std::uint32_t pixel) {
  constexpr std::uint32_t kOpaque = 0xff000000U;
  switch (mode) {
    case PenMode::NotMaskPen:
      return ~(pen & pixel) | kOpaque;
    case PenMode::MaskPen:
      return pen & pixel;
    case PenMode::CopyPen:
      break;
  }
  return pen;
}

int Nearest_Pixel(double position) { return static_cast<int>(std::nearbyint(position)); }

bool Near_The_Pane(double px, double py) {
  return std::abs(px) < kFarOutside && std::abs(py) < kFarOutside;
}

int Pen_Width(const Mark& mark) { return std::clamp<int>(mark.width, 1, kMaxPenWidth); }

PixelRect Inside(const PixelView& pixels, const PixelRect& rect) {
  const PixelRect inside{std::max(rect.left, 0), std::max(rect.top, 0),
                         std::min(rect.right, pixels.width), std::min(rect.bottom, pixels.height)};
  return inside.Is_Empty() ? PixelRect() : inside;
}

std::optional<PixelLine> Clipped_Line(const Mark& mark, const PixelView& pixels) {
  if (!std::isfinite(mark.x1 + mark.y1 + mark.x2 + mark.y2)) return std::nullopt;
  const double margin = Pen_Width(mark) + 2.0;
  const double dx = mark.x2 - mark.x1, dy = mark.y2 - mark.y1;
  double first = 0, last = 1;
  if (!Clip_Axis(mark.x1, dx, -margin, pixels.width + margin, first, last) ||
      !Clip_Axis(mark.y1, dy, -margin, pixels.height + margin, first, last)) {
    return std::nullopt;
  }
  return PixelLine{Nearest_Pixel(mark.x1 + first * dx), Nearest_Pixel(mark.y1 + first * dy),
                   Nearest_Pixel(mark.x1 + last * dx), Nearest_Pixel(mark.y1 + last * dy)};
}

PixelRect Paint_Point(const PixelView& pixels, const Mark& mark) {
  if (!Near_The_Pane(mark.x1, mark.y1)) return {};
  const int width = Pen_Width(mark);
  const int left = Nearest_Pixel(mark.x1) - width / 2;
  const int top = Nearest_Pixel(mark.y1) - width / 2;
  const PixelRect touched = Inside(pixels, {left, top, left + width, top + width});
  const std::uint32_t colour = Pixel_Of(mark.colour);
  for (int y = touched.top; y < touched.bottom; ++y) {
    std::fill(pixels.Row(y) + touched.left, pixels.Row(y) + touched.right, colour);
  }
  return touched;
}

PixelRect Paint_Thin_Line(const PixelView& pixels, const Mark& mark) {
  const auto line = Clipped_Line(mark, pixels);
  if (!line) return {};
  const int steps = std::max(std::abs(line->x2 - line->x1), std::abs(line->y2 - line->y1));
  const std::uint32_t colour = Pixel_Of(mark.colour);
  for (int k = 0; k <= steps; ++k) {
    const int x = steps == 0 ? line->x1 : Position_At(line->x1, line->x2, k, steps);
    const int y = steps == 0 ? line->y1 : Position_At(line->y1, line->y2, k, steps);
    const bool shown = x >= 0 && x < pixels.width && y >= 0 && y < pixels.height;
    if (shown) pixels.Row(y)[x] = Joined(mark.mode, colour, pixels.Row(y)[x]);
  }
  const auto [left, right] = std::minmax(line->x1, line->x2);
  const auto [top, bottom] = std::minmax(line->y1, line->y2);
  return {left, top, right + 1, bottom + 1};
}

}  // namespace sylvomex
