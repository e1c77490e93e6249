// SPDX-License-Identifier: MIT
#include "interchange/circle_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sylvomex {
namespace {

/// A camera coordinate along the circle: middle + along_x cos t + along_y sin t.
struct Harmonic {
  double middle = 0, along_x = 0, along_y = 0;
};

/// Least and greatest n / d over the circle; d keeps its sign.
std::pair<double, double> Extremes(const Harmonic& n, const Harmonic& d) {
  const double a = d.middle * d.middle - d.along_x * d.along_x - d.along_y * d.along_y;
  const double b = n.middle * d.middle - n.along_x * d.along_x - n.along_y * d.along_y;
  const double c = n.middle * n.middle - n.along_x * n.along_x - n.along_y * n.along_y;
  const double root = std::sqrt(std::max(0.0, b * b - a * c));
  return {(b - root) / a, (b + root) / a};
}

/// First pixel and number of pixels between two positions, cut to the image's side.
std::pair<int, int> Pixels_Between(double low, double high, int side) {
  const double first = std::max(0.0, std::floor(low));
  const double last = std::min(side - 1.0, std::floor(high));
  if (!(first <= last)) return {0, 0};
  return {static_cast<int>(first), static_cast<int>(last - first) + 1};
}

}  // namespace

std::optional<PixelWindow> Window_Of_Circle(const OrientedPhoto& photo,
                                            const GroundCircle& circle) {
  const RotationMatrix& m = photo.m;
  const double dX = circle.centre.X - photo.centre.X;
  const double dY = circle.centre.Y - photo.centre.Y;
  const double dZ = circle.centre.Z - photo.centre.Z;
  const double r = circle.radius;
  const Harmonic u{m.m11 * dX + m.m12 * dY + m.m13 * dZ, m.m11 * r, m.m12 * r};
  const Harmonic v{m.m21 * dX + m.m22 * dY + m.m23 * dZ, m.m21 * r, m.m22 * r};
  const Harmonic w{m.m31 * dX + m.m32 * dY + m.m33 * dZ, m.m31 * r, m.m32 * r};
  if (!(w.middle < -std::hypot(w.along_x, w.along_y))) return std::nullopt;
  const auto [u_low, u_high] = Extremes(u, w);
  const auto [v_low, v_high] = Extremes(v, w);
  const double fx = photo.f_mm / photo.pixel_mm;
  const double fy = photo.f_mm / photo.pixel_y_mm;
  const double cx = photo.width / 2.0 + photo.x0;
  const double cy = photo.height / 2.0 - photo.y0;
  const auto [first_col, width] = Pixels_Between(cx - fx * u_high, cx - fx * u_low, photo.width);
  const auto [first_row, height] = Pixels_Between(cy + fy * v_low, cy + fy * v_high, photo.height);
  if (width == 0 || height == 0) return std::nullopt;
  return PixelWindow{first_col, first_row, width, height};
}

}  // namespace sylvomex
