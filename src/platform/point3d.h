// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

/// A point in object space: X east, Y north, Z up, metres.
struct Point3D {
  double X = 0, Y = 0, Z = 0;
};

}  // namespace sylvomex
