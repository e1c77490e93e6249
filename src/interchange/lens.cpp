// SPDX-License-Identifier: MIT
#include "interchange/lens.h"

#include <cmath>
#include <limits>

namespace sylvomex {

LensPosition Distorted(const BrownLens& lens, const LensPosition& ideal) {
  const double x = ideal.x;
  const double y = ideal.y;
  const double r2 = x * x + y * y;
  const double radial = 1 + r2 * (lens.k1 + r2 * (lens.k2 + r2 * lens.k3));
  return {x * radial + 2 * lens.p1 * x * y + lens.p2 * (r2 + 2 * x * x),
          y * radial + lens.p1 * (r2 + 2 * y * y) + 2 * lens.p2 * x * y};
}

LensPosition Undistorted(const BrownLens& lens, const LensPosition& real) {
  constexpr int kMostSteps = 100;
  constexpr double kSmall = 1e-14;
  LensPosition ideal = real;
  for (int step = 0; step < kMostSteps; ++step) {
    const LensPosition again = Distorted(lens, ideal);
    const double dx = real.x - again.x;
    const double dy = real.y - again.y;
    ideal.x += dx;
    ideal.y += dy;
    if (std::abs(dx) < kSmall && std::abs(dy) < kSmall) return ideal;
  }
  const double none = std::numeric_limits<double>::quiet_NaN();
  return {none, none};
}

}  // namespace sylvomex
