// SPDX-License-Identifier: MIT
// The mesh of points in which tree tops are looked for: a square of columns over the plot, each
// filled through the canopy layer. X east, Y north, Z up, metres.
#pragma once

#include <functional>

#include "closedlib/back_projection.h"
#include "platform/huge_pages.h"

namespace sylvomex {

/// Some hundred thousand points that are read in the order of their scores.
using MeshTable = HugePageVector<Point3D>;

struct MeshSettings {
  double plot_X = 0, plot_Y = 0;  // middle of the mesh
  double side_X = 0, side_Y = 0;  // metres
  double dx = 0, dy = 0, dz = 0;  // spacing, above 0
  double rotation = 0;            // radians, about the middle, from X towards Y
  double top_factor = 0;          // upper limit of the layer, in canopy heights above ground
  double low_factor = 0;          // lower limit, in upper limits above ground
};

/// Height of a surface at X, Y.
using HeightLookup = std::function<double(double X, double Y)>;

inline constexpr double kMostMeshPoints = 50'000'000;

/// Points in the order of u (from -side / 2 to side / 2, rotated X), v (likewise, Y) and Z. The
/// k-th step lies at start + k spacing, not at a running sum; the ends count although rounding
/// misses them by a thousandth of a metre (u, v) or a millionth of the spacing (Z). A column whose
/// canopy lies below the ground has no points.
///
/// RunTimeError(BadContent) naming a spacing that is not above 0; RunTimeError(OutOfMemory) with
/// the count of points or columns above 50 million.
MeshTable Build_Mesh(const MeshSettings& settings, const HeightLookup& terrain,
                     const HeightLookup& canopy);

}  // namespace sylvomex
