// SPDX-License-Identifier: MIT
#include "heightmodels/ray_cut.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sylvomex {
namespace {

// Looks straight down from 1000 m above the origin; film x = 0.05 is a ray that moves 0.5 m east
// for every metre down.
Camera Vertical() {
  ImageRecord image;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 100000;
  image.Z0 = 1000;
  return Make_Camera(image);
}

constexpr FilmPosition kEastward{0.05, 0};

TEST(RayCut, MeetsALevelSurfaceAtItsHeight) {
  const auto point = Cut_Ray(
      Vertical(), kEastward, [](double, double) { return 200.0; }, 0);
  ASSERT_TRUE(point);
  EXPECT_NEAR(point->X, 400, 0.001);  // 0.5 x (1000 - 200)
  EXPECT_NEAR(point->Y, 0, 1e-9);
  EXPECT_NEAR(point->Z, 200, 0.001);
}

// Z = X / 2 and X = (1000 - Z) / 2 meet at Z = 200, X = 400.
TEST(RayCut, MeetsARisingSlope) {
  const auto point = Cut_Ray(
      Vertical(), kEastward, [](double X, double) { return X / 2; }, 500);
  ASSERT_TRUE(point);
  EXPECT_NEAR(point->X, 400, 0.001);
  EXPECT_NEAR(point->Z, 200, 0.001);
}

// Z = 2000 - 4 X falls faster than the ray, under which the camera at X = 0 would stand.
TEST(RayCut, ASurfaceSteeperThanTheRayGivesNoPoint) {
  EXPECT_FALSE(Cut_Ray(
      Vertical(), kEastward, [](double X, double) { return 2000 - 4 * X; }, 10));
}

// Z = 3 X - 1000 and X = (1000 - Z) / 2 meet at X = 400, Z = 200; the heights of successive points
// lie on either side of it, ever farther away.
TEST(RayCut, ASteepSlopeIsMetByHalving) {
  const auto point = Cut_Ray(
      Vertical(), kEastward, [](double X, double) { return 3 * X - 1000; }, 150);
  ASSERT_TRUE(point);
  EXPECT_NEAR(point->X, 400, 0.001);
  EXPECT_NEAR(point->Z, 200, 0.001);
}

// A cliff at X = 400 from 100 to 300 m: the ray passes X = 400 at Z = 200, in its face.
TEST(RayCut, ACliffIsMetInItsFace) {
  const auto point = Cut_Ray(
      Vertical(), kEastward, [](double X, double) { return X < 400 ? 100.0 : 300.0; }, 250);
  ASSERT_TRUE(point);
  EXPECT_NEAR(point->X, 400, 0.01);
  EXPECT_NEAR(point->Z, 200, 0.01);
}

TEST(RayCut, OutsideTheSurfaceThereIsNoPoint) {
  EXPECT_FALSE(Cut_Ray(
      Vertical(), kEastward, [](double, double) { return std::optional<double>(); }, 0));
}

// Tilted by 100 degrees the camera looks above the horizon: the ray meets the plane behind it only.
TEST(RayCut, ARayIntoTheSkyMeetsNothing) {
  ImageRecord image;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 100000;
  image.Z0 = 1000;
  image.Omega = 1.7453292519943295;
  EXPECT_FALSE(Cut_Ray(
      Make_Camera(image), {0, 0}, [](double, double) { return 0.0; }, 0));
}

}  // namespace
}  // namespace sylvomex
