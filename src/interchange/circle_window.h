// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "interchange/photo_given.h"

namespace sylvomex {

/// Whole pixels: columns first_col to first_col + width - 1 of the full image, rows from the top.
struct PixelWindow {
  int first_col = 0, first_row = 0, width = 0, height = 0;

  bool operator==(const PixelWindow&) const = default;
};

struct GroundCircle {
  Point3D centre;     // world, metres
  double radius = 0;  // metres
};

/// The pixels of an image in whose columns and rows a horizontal circle lies, cut to the image;
/// std::nullopt when the image does not show it or part of it lies behind the camera. The extremes
/// of the projected circle are exact: they are double roots of (a - v d)^2 = |(b - v e)|^2.
std::optional<PixelWindow> Window_Of_Circle(const OrientedPhoto& photo, const GroundCircle& circle);

}  // namespace sylvomex
