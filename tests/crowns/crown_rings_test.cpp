// SPDX-License-Identifier: MIT
#include "crowns/crown_rings.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sylvomex {
namespace {

// Radius 2 at every depth: the scale is 0.
const CrownRecord kTree{100, 200, 150, 20, 30, 0, 0.75, 2};

TEST(CrownRing, SeventeenDashesFromWestToWest) {
  const std::vector<RingDash> dashes = Crown_Ring(kTree, 4);
  ASSERT_EQ(dashes.size(), 17U);
  for (int i = 0; i < 17; ++i) {
    const double t = -3.14 + 3.14 / 8 * i;
    const RingDash& dash = dashes[static_cast<std::size_t>(i)];
    EXPECT_NEAR(dash.from.X, 100 + 2 * std::cos(t), 1e-9);
    EXPECT_NEAR(dash.from.Y, 200 + 2 * std::sin(t), 1e-9);
    EXPECT_NEAR(dash.to.X, 100 + 2 * std::cos(t + 0.314), 1e-9);
    EXPECT_NEAR(dash.to.Y, 200 + 2 * std::sin(t + 0.314), 1e-9);
    EXPECT_EQ(dash.from.Z, 146);
    EXPECT_EQ(dash.to.Z, 146);
  }
}

TEST(CrownRing, TheCameraSeesTheNearSideOnly) {
  EXPECT_TRUE(Faces_Camera({{102, 200, 0}, {}}, kTree, 1000, 200));
  EXPECT_FALSE(Faces_Camera({{98, 200, 0}, {}}, kTree, 1000, 200));
}

TEST(CrownRing, ADashAsFarAsTheAxisIsNotDrawn) {
  // From (101, 200): the axis is 1 m away, the point (102, 200) as well.
  EXPECT_FALSE(Faces_Camera({{102, 200, 0}, {}}, kTree, 101, 200));
}

TEST(RingDepths, IncludeBothEnds) {
  EXPECT_EQ(Ring_Depths(0, 3, 1), (std::vector<double>{0, 1, 2, 3}));
  EXPECT_EQ(Ring_Depths(8, 10, 1.5), (std::vector<double>{8, 9.5}));
  EXPECT_EQ(Ring_Depths(4, 3, 1), (std::vector<double>{}));
}

}  // namespace
}  // namespace sylvomex
