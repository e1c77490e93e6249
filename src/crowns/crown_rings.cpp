// SPDX-License-Identifier: MIT
#include "crowns/crown_rings.h"

#include <cmath>

#include "closedlib/counted_loop.h"

namespace sylvomex {
namespace {

constexpr double kHalfTurn = 3.14;  // radians, as the rings are drawn
constexpr double kAngleStep = kHalfTurn / 8;
constexpr double kDashAngle = kHalfTurn / 10;

double Squared_Distance(double X, double Y, double X0, double Y0) {
  return (X - X0) * (X - X0) + (Y - Y0) * (Y - Y0);
}

}  // namespace

std::vector<double> Ring_Depths(double first, double last, double step) {
  std::vector<double> depths;
  const int count = Loop_Passes(first, last, step);
  depths.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) depths.push_back(first + i * step);
  return depths;
}

std::vector<RingDash> Crown_Ring(const CrownRecord& crown, double depth) {
  const double r = Crown_Radius(Shape_Of(crown), crown.Height, depth);
  const double Z = crown.TopZ - depth;
  const auto at = [&](double t) {
    return Point3D{crown.X + r * std::cos(t), crown.Y + r * std::sin(t), Z};
  };
  std::vector<RingDash> dashes;
  const int count = Loop_Passes(-kHalfTurn, kHalfTurn, kAngleStep);
  for (int i = 0; i < count; ++i) {
    const double t = -kHalfTurn + i * kAngleStep;
    dashes.push_back({at(t), at(t + kDashAngle)});
  }
  return dashes;
}

bool Faces_Camera(const RingDash& dash, const CrownRecord& crown, double X0, double Y0) {
  return Squared_Distance(dash.from.X, dash.from.Y, X0, Y0) <
         Squared_Distance(crown.X, crown.Y, X0, Y0);
}

}  // namespace sylvomex
