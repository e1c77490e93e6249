// SPDX-License-Identifier: MIT
// Lens distortion after Brown (1971), Close-range camera calibration, with the order and sense of
// OpenCV: x right, y down, both from the principal point and divided by the focal length, from the
// ideal position to the real one.
#pragma once

namespace sylvomex {

struct BrownLens {
  double k1 = 0, k2 = 0, k3 = 0;  // radial
  double p1 = 0, p2 = 0;          // tangential

  bool operator==(const BrownLens&) const = default;
  [[nodiscard]] bool Is_Ideal() const { return *this == BrownLens{}; }
};

struct LensPosition {
  double x = 0, y = 0;
};

/// Where the real lens shows what the ideal one shows at a position.
LensPosition Distorted(const BrownLens& lens, const LensPosition& ideal);

/// The inverse by iteration; NaN where it does not converge.
LensPosition Undistorted(const BrownLens& lens, const LensPosition& real);

}  // namespace sylvomex
