// SPDX-License-Identifier: MIT
// Crowns as rings of dashes about their axis.
#pragma once

#include <vector>

#include "crowns/crown_profile.h"
#include "platform/point3d.h"

namespace sylvomex {

struct RingDash {
  Point3D from, to;
};

/// Depths of the rings: every step from first to last, both included, metres; none when last lies
/// before first.
std::vector<double> Ring_Depths(double first, double last, double step);

/// The 17 dashes of the ring at a depth below the top: one at every 3.14 / 8 from -3.14 to 3.14,
/// each 3.14 / 10 long, at X + r cos t, Y + r sin t.
std::vector<RingDash> Crown_Ring(const CrownRecord& crown, double depth);

/// True when the first point of the dash lies nearer to the camera's centre than the axis does,
/// both in the horizontal plane.
bool Faces_Camera(const RingDash& dash, const CrownRecord& crown, double X0, double Y0);

}  // namespace sylvomex
