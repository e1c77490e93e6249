// SPDX-License-Identifier: MIT
#include "solver/ray_angles.h"

#include <cmath>
#include <numbers>

namespace sylvomex {
namespace {

using std::numbers::pi;

/// Degrees; far above the rounding errors of the angles, far below what an operator can notice.
constexpr double kClassTolerance = 1e-9;

double Horizontal_Angle(const Vector3& v) { return MYFUNC_ATAN2(v.x * 100, v.y * 100); }

double Azimuth_Of_Angle(double angle) { return (pi / 2 - angle) * kDegreesPerRadian; }

double Ray_Azimuth(const Vector3& ray) {
  const double azimuth = Azimuth_Of_Angle(Horizontal_Angle(ray));
  return azimuth > 180 && azimuth - 180 < 180 ? azimuth + 180 : azimuth;
}

Vector3 Ray_To(const Camera& camera, const Point3D& point) {
  return Film_Ray(camera, Film_Of_Point(camera, point));
}

double Off_Nadir(const RotationMatrix& m, Vector3 ray) {
  Vector3 axis;
  Make_Vector(axis, -m.m31, -m.m32, -m.m33);
  Normalize_Vector(axis);
  Normalize_Vector(ray);
  return Angle_Between_Vectors(axis, ray) * kDegreesPerRadian;
}

double Azimuth_Difference(double sun_azimuth, double ray_azimuth) {
  double difference = sun_azimuth - ray_azimuth;
  if (difference < -180) difference = 360 + difference;
  if (difference > 180) difference = difference - 360;
  return difference;
}

/// Difference of two horizontal angles in radians. Always positive when the shorter arc between
/// them crosses the west axis, where the angles wrap around.
double Angle_Difference(double sun_angle, double ray_angle) {
  const double sun = sun_angle + pi;
  const double ray = ray_angle + pi;
  const double difference = sun - ray;
  if (difference < -pi) return (2 * pi - ray) + sun;
  if (difference > pi) return (2 * pi - sun) + ray;
  return difference;
}

}  // namespace

double MYFUNC_ATAN2(double u, double v) {
  // Adding 0 turns -0 into +0; with -0 atan2 would return -pi.
  return std::atan2(v + 0.0, u + 0.0);
}

SunAngles Sun_Of(const ImageRecord& image) { return {image.SunAzimuth, image.SunElevation}; }

Vector3 Sun_Vector(const SunAngles& sun) {
  const double a = (90 - sun.azimuth * kDegreesPerRadian) * kRadiansPerDegree;
  const double e = (90 - sun.elevation * kDegreesPerRadian) * kRadiansPerDegree;
  return {std::sin(e) * std::cos(a), std::sin(e) * std::sin(a), std::cos(e)};
}

Vector3 Film_Ray(const Camera& camera, const FilmPosition& film) {
  const RotationMatrix& m = camera.m;
  const auto [x, y] = film;
  const double c = camera.c;
  return {m.m11 * x + m.m21 * y - m.m31 * c, m.m12 * x + m.m22 * y - m.m32 * c,
          m.m13 * x + m.m23 * y - m.m33 * c};
}

ViewAngles View_Angles(const Camera& camera, const SunAngles& sun, const Point3D& point) {
  const Vector3 ray = Ray_To(camera, point);
  ViewAngles angles;
  angles.ray_azimuth = Ray_Azimuth(ray);
  angles.azimuth_difference =
      Azimuth_Difference(Azimuth_Of_Angle(Horizontal_Angle(Sun_Vector(sun))), angles.ray_azimuth);
  angles.off_nadir = Off_Nadir(camera.m, ray);
  return angles;
}

LightingAngles Lighting_At(const Camera& camera, const SunAngles& sun, const Point3D& point) {
  const Vector3 ray = Ray_To(camera, point);
  LightingAngles angles;
  angles.sun_azimuth = sun.azimuth * kDegreesPerRadian;
  angles.sun_elevation = sun.elevation * kDegreesPerRadian;
  angles.ray_azimuth = Ray_Azimuth(ray);
  angles.difference = Angle_Difference(Horizontal_Angle(Sun_Vector(sun)), Horizontal_Angle(ray)) *
                      kDegreesPerRadian;
  angles.lighting = Lighting_Class(std::abs(angles.difference));
  angles.off_nadir = Off_Nadir(camera.m, ray);
  return angles;
}

const char* Lighting_Class(double absolute_difference) {
  const double reached = absolute_difference + kClassTolerance;
  if (reached < 45) return "B";
  if (reached < 90) return "BS";
  if (reached < 135) return "FS";
  return std::isnan(reached) ? "" : "F";
}

}  // namespace sylvomex
