// SPDX-License-Identifier: MIT
// Photographs from within the stand: a small camera on a tripod, horizontal, portrait format, aimed
// at the stem of a tree.
#pragma once

#include <optional>
#include <vector>

#include "demo/scene/flight.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

inline constexpr double kStandPrincipalDistance = 0.007188;  // metres
inline constexpr double kStandHalfWidth = 0.002692;          // of the frame, metres
inline constexpr double kStandHalfHeight = 0.003589;
inline constexpr double kBreastHeight = 1.3;  // metres above ground

/// The centre of a tree's stem at breast height.
Point3D Breast_Height_Point(const Tree& tree);

/// Rotation angles of a camera looking along a unit vector, with the frame's upper edge up. The
/// direction must be neither vertical nor due east or west.
struct RotationAngles {
  double omega = 0, phi = 0, kappa = 0;  // radians
};
RotationAngles Angles_Of_View(const Vector3& direction);

/// A photograph from a position towards a point, horizontal if both have the same height. name as
/// "c:\data\demo\terr1".
Photograph Stand_Photograph(const Scene& scene, const Point3D& position, const Point3D& target,
                            int id, const std::string& name);

/// Up to three unobstructed photographs of the tree's stem at breast height, from different sides,
/// and after them one from the first position looking away from it.
std::vector<Photograph> Photographs_Around(const Scene& scene, std::size_t tree);

/// The ray through a full-image position, a unit vector.
Ray Stand_Ray(const Photograph& photo, double col, double row);

/// Raw pixels as from Render_Photograph, with sky behind the trees.
std::vector<std::uint8_t> Render_Stand_Photograph(const Scene& scene, const Photograph& photo);

}  // namespace sylvomex::demo
