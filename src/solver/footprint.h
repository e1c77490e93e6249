// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>

#include "solver/camera_model.h"
#include "solver/point_lists.h"

namespace sylvomex {

/// The footprint of a photograph on a horizontal plane, metres.
struct Footprint {
  Point3D centre;                  // of the film's centre
  std::array<Point3D, 4> corners;  // rear right, front right, front left, rear left, in flight
};

/// The projection of the film's centre to the plane at Z, and a rectangle of the image's footprint
/// size around it, aligned with the flight line. std::nullopt when the camera's axis is parallel to
/// the plane.
std::optional<Footprint> Footprint_At(const Camera& camera, const FlightImage& image, double Z);

}  // namespace sylvomex
