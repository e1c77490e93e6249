// SPDX-License-Identifier: MIT
#include "interchange/lens.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sylvomex {
namespace {

TEST(BrownLens, FollowsEachTermByHand) {
  // x = 0.3, y = 0.4: r^2 = 0.25.
  const LensPosition at{0.3, 0.4};
  EXPECT_DOUBLE_EQ(Distorted({0.1, 0, 0, 0, 0}, at).x, 0.3 * 1.025);
  EXPECT_DOUBLE_EQ(Distorted({0, 0.1, 0, 0, 0}, at).y, 0.4 * (1 + 0.1 * 0.0625));
  EXPECT_DOUBLE_EQ(Distorted({0, 0, 0.1, 0, 0}, at).x, 0.3 * (1 + 0.1 * 0.015625));
  EXPECT_DOUBLE_EQ(Distorted({0, 0, 0, 0.01, 0}, at).x, 0.3 + 0.01 * 2 * 0.12);
  EXPECT_DOUBLE_EQ(Distorted({0, 0, 0, 0.01, 0}, at).y, 0.4 + 0.01 * (0.25 + 2 * 0.16));
  EXPECT_DOUBLE_EQ(Distorted({0, 0, 0, 0, 0.01}, at).x, 0.3 + 0.01 * (0.25 + 2 * 0.09));
  EXPECT_DOUBLE_EQ(Distorted({0, 0, 0, 0, 0.01}, at).y, 0.4 + 0.01 * 2 * 0.12);
}

TEST(BrownLens, TheInverseReturns) {
  const BrownLens lens{-0.12, 0.05, -0.01, 0.0008, -0.0005};
  for (double x = -0.7; x <= 0.7; x += 0.35) {
    for (double y = -0.5; y <= 0.5; y += 0.25) {
      const LensPosition back = Undistorted(lens, Distorted(lens, {x, y}));
      EXPECT_NEAR(back.x, x, 1e-12);
      EXPECT_NEAR(back.y, y, 1e-12);
    }
  }
}

TEST(BrownLens, TheInverseIsNotANumberWhereThereIsNone) {
  EXPECT_TRUE(std::isnan(Undistorted({-10, 0, 0, 0, 0}, {5, 5}).x));
}

}  // namespace
}  // namespace sylvomex
