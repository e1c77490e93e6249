// SPDX-License-Identifier: MIT
#include "solver/ray_angles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "solver/test_cameras.h"

namespace sylvomex {
namespace {

using std::numbers::pi;
using testing::Image_From;

constexpr double kToRadians = pi / 180;

TEST(Atan2, CountsFromTheFirstAxisTowardsTheSecond) {
  EXPECT_DOUBLE_EQ(MYFUNC_ATAN2(1, 0), 0);
  EXPECT_DOUBLE_EQ(MYFUNC_ATAN2(1, 1), pi / 4);
  EXPECT_DOUBLE_EQ(MYFUNC_ATAN2(0, 1), pi / 2);
  EXPECT_DOUBLE_EQ(MYFUNC_ATAN2(-1, -1), -3 * pi / 4);
  EXPECT_DOUBLE_EQ(MYFUNC_ATAN2(0, -1), -pi / 2);
}

TEST(Atan2, WestIsPlusPiWhateverTheSignOfZero) {
  EXPECT_DOUBLE_EQ(MYFUNC_ATAN2(-1, 0.0), pi);
  EXPECT_DOUBLE_EQ(MYFUNC_ATAN2(-1, -0.0), pi);
}

TEST(Atan2, ZeroVectorHasAngleZeroWhateverTheSigns) {
  EXPECT_EQ(MYFUNC_ATAN2(-0.0, 0.0), 0);
  EXPECT_EQ(MYFUNC_ATAN2(-0.0, -0.0), 0);
}

void Expect_Vector(const Vector3& v, double x, double y, double z) {
  EXPECT_NEAR(v.x, x, 1e-12);
  EXPECT_NEAR(v.y, y, 1e-12);
  EXPECT_NEAR(v.z, z, 1e-12);
}

TEST(SunVector, PointsTowardsTheSun) {
  const double half_root = std::sqrt(0.5);
  Expect_Vector(Sun_Vector({90 * kToRadians, 0}), 1, 0, 0);
  Expect_Vector(Sun_Vector({0, 0}), 0, 1, 0);
  Expect_Vector(Sun_Vector({180 * kToRadians, 45 * kToRadians}), 0, -half_root, half_root);
  Expect_Vector(Sun_Vector({1, 90 * kToRadians}), 0, 0, 1);
}

TEST(FilmRay, OfAnUntiltedCameraIsTheFilmPositionAboveMinusC) {
  const ImageRecord image = Image_From(0, 0, 1000);
  Expect_Vector(Film_Ray(Make_Camera(image), {0.02, -0.03}), 0.02, -0.03, -0.1);
}

TEST(FilmRay, OfATiltedCameraLeadsThroughTheObjectPoint) {
  const ImageRecord image = Image_From(10, 20, 1000, 0.3, -0.2, 1.9);
  const testing::FilmPoint film = testing::Project(image, 150, -90, 40);
  const Vector3 ray =
      Film_Ray(Make_Camera(image), {static_cast<double>(film.x), static_cast<double>(film.y)});
  const double scale = ray.z / (40 - 1000);
  EXPECT_GT(scale, 0);
  EXPECT_NEAR(ray.x, scale * 140, 1e-12);
  EXPECT_NEAR(ray.y, scale * -110, 1e-12);
}

/// A vertical photograph from 1000 m above the origin under a given sun, in degrees.
ImageRecord Sunlit_Camera(double sun_azimuth, double sun_elevation = 30) {
  ImageRecord image = Image_From(0, 0, 1000);
  image.SunAzimuth = sun_azimuth * kToRadians;
  image.SunElevation = sun_elevation * kToRadians;
  return image;
}

/// The ground point 500 m from the nadir point in a direction.
Point3D Ground_Point(double azimuth) {
  return {500 * std::sin(azimuth * kToRadians), 500 * std::cos(azimuth * kToRadians), 0};
}

ViewAngles View(const ImageRecord& image, const Point3D& point) {
  return View_Angles(Make_Camera(image), Sun_Of(image), point);
}

LightingAngles Lighting(const ImageRecord& image, const Point3D& point) {
  return Lighting_At(Make_Camera(image), Sun_Of(image), point);
}

TEST(RayAzimuth, CountsClockwiseFromNorth) {
  const ImageRecord image = Sunlit_Camera(0);
  EXPECT_NEAR(View(image, {0, 500, 0}).ray_azimuth, 0, 1e-9);
  EXPECT_NEAR(View(image, Ground_Point(45)).ray_azimuth, 45, 1e-9);
  EXPECT_NEAR(View(image, {500, 0, 0}).ray_azimuth, 90, 1e-9);
  EXPECT_NEAR(View(image, Ground_Point(135)).ray_azimuth, 135, 1e-9);
  EXPECT_NEAR(View(image, {0, -500, 0}).ray_azimuth, 180, 1e-9);
}

TEST(RayAzimuth, BetweenSouthAndWestIsRaisedByHalfATurn) {
  const ImageRecord image = Sunlit_Camera(0);
  EXPECT_NEAR(View(image, Ground_Point(181)).ray_azimuth, 361, 1e-9);
  EXPECT_NEAR(View(image, Ground_Point(225)).ray_azimuth, 405, 1e-9);
  EXPECT_NEAR(View(image, Ground_Point(269)).ray_azimuth, 449, 1e-9);
}

TEST(RayAzimuth, BetweenWestAndNorthIsNegative) {
  const ImageRecord image = Sunlit_Camera(0);
  EXPECT_NEAR(View(image, {-500, 0, 0}).ray_azimuth, -90, 1e-9);
  EXPECT_NEAR(View(image, Ground_Point(315)).ray_azimuth, -45, 1e-9);
}

TEST(AzimuthDifference, IsTheSunMinusTheRay) {
  EXPECT_NEAR(View(Sunlit_Camera(120), Ground_Point(90)).azimuth_difference, 30, 1e-9);
  EXPECT_NEAR(View(Sunlit_Camera(20), Ground_Point(90)).azimuth_difference, -70, 1e-9);
}

TEST(AzimuthDifference, BelowMinusHalfATurnIsRaisedByATurn) {
  // The ray's azimuth of 225 degrees is given as 405: 0 - 405 + 360.
  EXPECT_NEAR(View(Sunlit_Camera(0), Ground_Point(225)).azimuth_difference, -45, 1e-9);
}

TEST(AzimuthDifference, AboveHalfATurnIsLoweredByATurn) {
  // 180 - (-45) = 225, which is -(360 - 225).
  EXPECT_NEAR(View(Sunlit_Camera(180), Ground_Point(315)).azimuth_difference, -135, 1e-9);
}

TEST(OffNadir, OfAVerticalCameraIsTheAngleFromTheVertical) {
  const ImageRecord image = Sunlit_Camera(0);
  EXPECT_NEAR(View(image, {1000, 0, 0}).off_nadir, 45, 1e-9);
  EXPECT_NEAR(View(image, {0, -1000, 0}).off_nadir, 45, 1e-9);
  EXPECT_NEAR(View(image, {0, 0, 0}).off_nadir, 0, 1e-9);
}

TEST(OffNadir, IsMeasuredFromTheCamerasAxis) {
  // An axis tilted by 30 degrees meets the ground at 1000 tan 30 m, where the angle is 0.
  ImageRecord image = Image_From(0, 0, 1000, 0, 30 * kToRadians);
  const Point3D on_axis = {-1000 * std::tan(30 * kToRadians), 0, 0};
  EXPECT_NEAR(View(image, on_axis).off_nadir, 0, 1e-5);
  EXPECT_NEAR(View(image, {0, 0, 0}).off_nadir, 30, 1e-9);
}

TEST(LightingTable, RepeatsTheHeadersSunInDegrees) {
  const LightingAngles angles = Lighting(Sunlit_Camera(200, 40), Ground_Point(10));
  EXPECT_NEAR(angles.sun_azimuth, 200, 1e-9);
  EXPECT_NEAR(angles.sun_elevation, 40, 1e-9);
}

TEST(LightingTable, RayAzimuthAndOffNadirAreThoseOfTheView) {
  const ImageRecord image = Sunlit_Camera(200, 40);
  const LightingAngles angles = Lighting(image, Ground_Point(225));
  EXPECT_NEAR(angles.ray_azimuth, 405, 1e-9);
  EXPECT_NEAR(angles.off_nadir, std::atan(0.5) / kToRadians, 1e-9);
}

TEST(LightingTable, DifferenceIsCountedCounterClockwise) {
  EXPECT_NEAR(Lighting(Sunlit_Camera(30), Ground_Point(100)).difference, 70, 1e-9);
  EXPECT_NEAR(Lighting(Sunlit_Camera(100), Ground_Point(30)).difference, -70, 1e-9);
}

TEST(LightingTable, DifferenceAcrossTheWestAxisIsPositiveBothWays) {
  EXPECT_NEAR(Lighting(Sunlit_Camera(280), Ground_Point(260)).difference, 20, 1e-9);
  EXPECT_NEAR(Lighting(Sunlit_Camera(260), Ground_Point(280)).difference, 20, 1e-9);
}

TEST(LightingTable, EveryPairOfDirectionsHasTheSmallerAngleBetweenThem) {
  for (int sun = 0; sun < 360; sun += 15) {
    for (int ray = 0; ray < 360; ray += 15) {
      const int apart = std::abs(sun - ray);
      const int smaller = apart > 180 ? 360 - apart : apart;
      const LightingAngles angles = Lighting(Sunlit_Camera(sun), Ground_Point(ray));
      EXPECT_NEAR(std::abs(angles.difference), smaller, 1e-9) << sun << " against " << ray;
      const char* expected = smaller < 45 ? "B" : smaller < 90 ? "BS" : smaller < 135 ? "FS" : "F";
      EXPECT_STREQ(angles.lighting, expected) << sun << " against " << ray;
    }
  }
}

TEST(LightingClass, LimitsBelongToTheHigherClass) {
  EXPECT_STREQ(Lighting_Class(0), "B");
  EXPECT_STREQ(Lighting_Class(44.999), "B");
  EXPECT_STREQ(Lighting_Class(45), "BS");
  EXPECT_STREQ(Lighting_Class(89.999), "BS");
  EXPECT_STREQ(Lighting_Class(90), "FS");
  EXPECT_STREQ(Lighting_Class(134.999), "FS");
  EXPECT_STREQ(Lighting_Class(135), "F");
  EXPECT_STREQ(Lighting_Class(180), "F");
}

TEST(LightingClass, RoundingBelowALimitCountsAsTheLimit) {
  EXPECT_STREQ(Lighting_Class(std::nextafter(45.0, 0)), "BS");
  EXPECT_STREQ(Lighting_Class(pi / 2 * kDegreesPerRadian), "FS");
}

TEST(LightingClass, NaNHasNoClass) { EXPECT_STREQ(Lighting_Class(std::nan("")), ""); }

}  // namespace
}  // namespace sylvomex
