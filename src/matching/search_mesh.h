// SPDX-License-Identifier: MIT
// The mesh of points searched for tree tops: a square grid of columns over the plot, each filled
// through the canopy layer. X east, Y north, Z up, metres.
#pragma once

#include <functional>

#include "closedlib/back_projection.h"
#include "platform/huge_pages.h"

namespace sylvomex {

/// Some hundred thousand points that are read in order of score, so at scattered addresses.
using MeshTable = HugePageVector<Point3D>;

struct MeshSettings {
  double plot_X = 0, plot_Y = 0;  // centre of the mesh
  double side_X = 0, side_Y = 0;  // metres
  double dx = 0, dy = 0, dz = 0;  // spacing, greater than 0
  double rotation = 0;            // radians about the centre, from X towards Y
  double top_factor = 0;          // upper limit of the layer, in canopy heights above ground
  double low_factor = 0;          // lower limit: this factor times the upper limit above ground
};

/// Height of a surface at X, Y.
using HeightLookup = std::function<double(double X, double Y)>;

inline constexpr double kMostMeshPoints = 50'000'000;

/// Points in the order of u (from -side / 2 to side / 2, rotated X), v (likewise, Y) and Z. The
/// k-th step lies at start + k spacing, not at a running sum; an end point is included even if
/// rounding misses it by a thousandth of a metre (u, v) or a millionth of the spacing (Z). A column
/// whose canopy lies below the ground has no points.
///
/// RunTimeError(BadContent) naming a spacing that is not greater than 0; RunTimeError(OutOfMemory)
/// with the count for more than 50 million points or columns.
MeshTable Build_Mesh(const MeshSettings& settings, const HeightLookup& terrain,
                     const HeightLookup& canopy);

}  // namespace sylvomex
