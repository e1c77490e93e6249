// SPDX-License-Identifier: MIT
#include "crowns/crown_profile.h"

#include <algorithm>
#include <cmath>

#include "platform/run_time_error.h"

namespace sylvomex {

double Crown_Sine(double height, double depth) {
  if (height == 0) {
    throw RunTimeError(Failure::DivisionByZero, "the crown of a tree of height 0 has no profile");
  }
  return std::sin(4 * depth / height);
}

double Radius_At_Sine(const CrownShape& shape, double height, double sine) {
  return std::pow(sine, shape.p) * (height * shape.a) + shape.b;
}

double Crown_Radius(const CrownShape& shape, double height, double depth) {
  return Radius_At_Sine(shape, height, Crown_Sine(height, depth));
}

double Widest_Radius(const CrownShape& shape, double height) {
  return std::max(height * shape.a, 0.0) + shape.b;
}

}  // namespace sylvomex
