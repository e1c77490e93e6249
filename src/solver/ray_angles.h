// SPDX-License-Identifier: MIT
// Directions of the sun and of the camera ray at an object point. Degrees unless said
// otherwise; azimuths clockwise from north.
#pragma once

#include "solver/camera_model.h"
#include "solver/numeric_kernels.h"
#include "solver/space_intersection.h"

namespace sylvomex {

inline constexpr double kDegreesPerRadian = 57.2957795130823;
inline constexpr double kRadiansPerDegree = 0.0174532925199433;

/// Angle from the first axis towards the second, radians in (-pi, pi].
double MYFUNC_ATAN2(double u, double v);

/// Unit vector towards the sun, from the header's azimuth and elevation in radians.
Vector3 Sun_Vector(double sun_azimuth, double sun_elevation);

/// Vector of the film ray (x, y) in object space.
Vector3 Film_Ray(const ImageRecord& image, const RotationMatrix& m, double x, double y);

struct ViewAngles {
  double off_nadir = 0;
  double azimuth_difference = 0;
  double ray_azimuth = 0;
};
ViewAngles View_Angles(const ImageRecord& image, const RotationMatrix& m, const Point3D& point);

/// One line of the angle table.
struct LightingAngles {
  double sun_azimuth = 0;
  double sun_elevation = 0;
  double ray_azimuth = 0;
  double difference = 0;   // degrees in [-180, 180]
  const char* lighting = "";  // "B", "BS", "FS", "F"; B: lit from the camera's side
  double off_nadir = 0;
};
LightingAngles Lighting_At(const ImageRecord& image, const RotationMatrix& m,
                           const Point3D& point);

/// Class by the absolute difference in degrees, 0 to 180.
const char* Lighting_Class(double absolute_difference);

}  // namespace sylvomex
