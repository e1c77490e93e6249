// SPDX-License-Identifier: MIT
// Directions of the sun and of the camera ray at an object point. Degrees unless said
// otherwise; azimuths clockwise from north.
//
// Internally a horizontal direction is an angle from the east axis, counter-clockwise; the
// azimuth is pi / 2 minus that angle. The ray runs from the camera to the point, the sun
// vector from the point to the sun.
#pragma once

#include "solver/camera_model.h"
#include "solver/vector3.h"

namespace sylvomex {

inline constexpr double kDegreesPerRadian = 57.2957795130823;
inline constexpr double kRadiansPerDegree = 0.0174532925199433;

/// Angle from the first axis towards the second, radians in (-pi, pi]. The zero vector has
/// the angle 0.
double MYFUNC_ATAN2(double u, double v);

/// Direction of the sun in radians; the azimuth clockwise from north.
struct SunAngles {
  double azimuth = 0, elevation = 0;
};

/// The angles in the header.
SunAngles Sun_Of(const ImageRecord& image);

/// Unit vector towards the sun.
Vector3 Sun_Vector(const SunAngles& sun);

/// The direction of a film ray in object space, from the projection centre; its length is that of
/// (x, y, c) in metres.
Vector3 Film_Ray(const Camera& camera, const FilmPosition& film);

struct ViewAngles {
  double off_nadir = 0;           // between the camera's axis and the ray, 0 to 180
  double azimuth_difference = 0;  // sun less ray, -180 to 180
  double ray_azimuth = 0;  // -90 to 180; directions between south and west (180 to 270) come out
                           // 180 higher, as 360 to 450
};
ViewAngles View_Angles(const Camera& camera, const SunAngles& sun, const Point3D& point);

/// One line of the angle table.
struct LightingAngles {
  double sun_azimuth = 0;     // the header's, in degrees
  double sun_elevation = 0;   // the header's, in degrees
  double ray_azimuth = 0;     // as in ViewAngles
  double difference = 0;      // between the sun's and the ray's direction, -180 to 180
  const char* lighting = "";  // Lighting_Class of the difference
  double off_nadir = 0;       // as in ViewAngles
};
LightingAngles Lighting_At(const Camera& camera, const SunAngles& sun, const Point3D& point);

/// Class by the absolute difference in degrees: "B" below 45, "BS" below 90, "FS" below 135,
/// "F" up to 180, "" for NaN. A difference that only rounding keeps below a
/// limit counts as having reached it.
const char* Lighting_Class(double absolute_difference);

}  // namespace sylvomex
