// SPDX-License-Identifier: MIT
#include "solver/vector3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

TEST(VectorLength, OfTwoThreeSixIsSeven) { EXPECT_DOUBLE_EQ(Vector_Length({2, -3, 6}), 7); }

TEST(AngleBetweenVectors, HandWorkedAngles) {
  EXPECT_DOUBLE_EQ(Angle_Between_Vectors({1, 0, 0}, {0, 5, 0}), std::numbers::pi / 2);
  EXPECT_DOUBLE_EQ(Angle_Between_Vectors({1, 0, 0}, {-2, 0, 0}), std::numbers::pi);
  EXPECT_DOUBLE_EQ(Angle_Between_Vectors({1, 1, 0}, {0, 3, 3}), std::numbers::pi / 3);
}

TEST(AngleBetweenVectors, ParallelVectorsNeverGiveNaN) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> uniform(-1, 1);
  for (int trial = 0; trial < 1000; ++trial) {
    const Vector3 v = {uniform(random), uniform(random), uniform(random)};
    const Vector3 same = {v.x * 3, v.y * 3, v.z * 3};
    EXPECT_NEAR(Angle_Between_Vectors(v, same), 0, 1e-7);
  }
}

TEST(AngleBetweenVectors, ZeroVectorIsADivisionByZero) {
  EXPECT_TRUE(Failure_Of([] {
                Angle_Between_Vectors({0, 0, 0}, {1, 0, 0});
              }).starts_with("Division by zero: "));
}

TEST(NormalizeVector, ZeroVectorIsADivisionByZeroAndStaysUnchanged) {
  Vector3 v;
  EXPECT_TRUE(Failure_Of([&] { Normalize_Vector(v); }).starts_with("Division by zero: "));
  EXPECT_EQ(v.x, 0);
}

TEST(VectorLength, OutOfRangeIsAnOverflow) {
  EXPECT_TRUE(Failure_Of([] { Vector_Length({1e200, 0, 0}); }).starts_with("Overflow: "));
}

TEST(NormalizeVector, KeepsTheDirectionAtLengthOne) {
  Vector3 v;
  Make_Vector(v, 2, -3, 6);
  Normalize_Vector(v);
  EXPECT_DOUBLE_EQ(v.x, 2.0 / 7);
  EXPECT_DOUBLE_EQ(v.y, -3.0 / 7);
  EXPECT_DOUBLE_EQ(v.z, 6.0 / 7);
}

}  // namespace
}  // namespace sylvomex
