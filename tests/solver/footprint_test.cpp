// SPDX-License-Identifier: MIT
#include "solver/footprint.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sylvomex {
namespace {

Camera Tilted_Camera(double omega) {
  ImageRecord record;
  record.PrincipalDistance = 0.1;
  record.X0 = 10;
  record.Y0 = 20;
  record.Z0 = 1140.6;
  record.Omega = omega;
  return Make_Camera(record);
}

TEST(Footprint, OfAVerticalPhotographLiesBelowItsCentre) {
  const auto footprint = Footprint_At(Tilted_Camera(0), {"a", 1, 0, 5, 3}, 140.6);
  ASSERT_TRUE(footprint);
  EXPECT_DOUBLE_EQ(footprint->centre.X, 10);
  EXPECT_DOUBLE_EQ(footprint->centre.Y, 20);
  EXPECT_EQ(footprint->centre.Z, 140.6);
  EXPECT_DOUBLE_EQ(footprint->corners[0].X, 5);
  EXPECT_DOUBLE_EQ(footprint->corners[0].Y, 17);
  EXPECT_DOUBLE_EQ(footprint->corners[2].X, 15);
  EXPECT_DOUBLE_EQ(footprint->corners[2].Y, 23);
}

TEST(Footprint, RotatesCounterClockwiseWithItsLine) {
  const double quarter = std::acos(-1.0) / 2;
  const auto footprint = Footprint_At(Tilted_Camera(0), {"a", 1, quarter, 5, 3}, 140.6);
  ASSERT_TRUE(footprint);
  EXPECT_NEAR(footprint->corners[1].X, 13, 1e-12);  // flying north, the right side is east
  EXPECT_NEAR(footprint->corners[1].Y, 25, 1e-12);
}

// Omega rotates the camera about X: its axis then meets the plane 1000 tan(omega) to the north.
TEST(Footprint, OfATiltedPhotographIsWhereItsAxisMeetsThePlane) {
  const auto footprint = Footprint_At(Tilted_Camera(0.1), {"a", 1, 0, 0, 0}, 140.6);
  ASSERT_TRUE(footprint);
  EXPECT_NEAR(footprint->centre.Y, 20 + 1000 * std::tan(0.1), 1e-9);
  EXPECT_NEAR(footprint->corners[3].Y, footprint->centre.Y, 1e-12);
}

TEST(Footprint, OfAHorizontalAxisIsNone) {
  Camera level = Tilted_Camera(0);
  level.m = {1, 0, 0, 0, 0, 1, 0, -1, 0};
  EXPECT_FALSE(Footprint_At(level, {"a", 1, 0, 5, 3}, 140.6));
}

}  // namespace
}  // namespace sylvomex
