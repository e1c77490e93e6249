// SPDX-License-Identifier: MIT
// Where the ray of one photograph meets a height model (monoplotting: Kraus, Photogrammetry, 2nd
// ed. 2007, section 4.7).
#pragma once

#include <functional>
#include <optional>

#include "platform/point3d.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// Height of a surface at X, Y, metres; std::nullopt where it has none.
using HeightAt = std::function<std::optional<double>(double X, double Y)>;

/// The point of the surface on the ray through a film position, to a millimetre in height.
/// start_Z: a height near the surface. On a surface that the ray meets more than once, one of these
/// points. std::nullopt when the ray leaves the surface, meets it behind the camera only, or no
/// point is found in 60 steps, which a ray flatter than the surface can bring about.
std::optional<Point3D> Cut_Ray(const Camera& camera, const FilmPosition& film,
                               const HeightAt& height, double start_Z);

}  // namespace sylvomex
