// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>

#include "solver/camera_model.h"
#include "solver/point_lists.h"

namespace sylvomex {

/// Where a photograph lies on a horizontal plane, metres.
struct Footprint {
  Point3D centre;                  // of the film
  std::array<Point3D, 4> corners;  // rear right, front right, front left, rear left, as flown
};

/// The film's centre on the plane at Z with the image's sides about it, turned with the flight
/// line. Nothing when the camera's axis is parallel to the plane.
std::optional<Footprint> Footprint_At(const Camera& camera, const FlightImage& image, double Z);

}  // namespace sylvomex
