// SPDX-License-Identifier: MIT
#include "crowns/crown_profile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "crowns/species.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

TEST(CrownProfile, IsTheOffsetAtTheTop) { EXPECT_EQ(Crown_Radius({0.1, 0.75, 0.5}, 20, 0), 0.5); }

TEST(CrownProfile, TheFourStandsInsideTheSine) {
  // H = 8 pi: at depth pi the argument is 0.5.
  const double height = 8 * std::numbers::pi;
  EXPECT_NEAR(Crown_Radius({0.1, 1, 0.25}, height, std::numbers::pi),
              std::sin(0.5) * height * 0.1 + 0.25, 1e-14);
  // At half the height it is 2: sin 2 = 0.909297426825682.
  EXPECT_NEAR(Crown_Radius({0.1, 2, 0.5}, 20, 10), 0.909297426825682 * 0.909297426825682 * 2 + 0.5,
              1e-14);
}

TEST(CrownProfile, AboveTheTopThereIsNoRadius) {
  EXPECT_TRUE(std::isnan(Crown_Radius({0.1, 0.75, 0.5}, 20, -0.1)));
}

TEST(CrownProfile, AHeightOfZeroIsADivisionByZero) {
  try {
    Crown_Radius({0.1, 0.75, 0.5}, 0, 0);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::DivisionByZero);
  }
}

TEST(CrownProfile, NoRadiusExceedsTheWidest) {
  for (const CrownShape& shape :
       {CrownShape{0.1, 0.75, 0.5}, CrownShape{-0.1, 0.5, 3}, CrownShape{0.2, 0, -1}}) {
    for (double depth = 0; depth <= 10; depth += 0.1) {
      EXPECT_LE(Crown_Radius(shape, 20, depth), Widest_Radius(shape, 20));
    }
  }
}

TEST(Species, StartOfAnArea) {
  EXPECT_EQ(Start_Shape(0), (CrownShape{0.1, 0.75, 0.5}));
  EXPECT_EQ(Start_Shape(1), (CrownShape{0.1, 0.75, 0.5}));
  EXPECT_EQ(Start_Shape(2), (CrownShape{0.1, 0.75, 0.5}));
  EXPECT_EQ(Start_Shape(3), (CrownShape{0.13, 0.25, 0.5}));
  EXPECT_EQ(Start_Shape(4), (CrownShape{0.12, 0.25, 0.5}));
  EXPECT_THROW(Start_Shape(5), RunTimeError);
  EXPECT_THROW(Start_Shape(-1), RunTimeError);
}

TEST(Species, StartOfOneTreeComesFromItsSearchRadius) {
  EXPECT_EQ(Local_Start_Shape(0, 1.5, 20), (CrownShape{0.075, 0.75, 0.3}));
  EXPECT_EQ(Local_Start_Shape(1, 1.5, 20), (CrownShape{0.075, 0.7, 0.3}));
  EXPECT_EQ(Local_Start_Shape(2, 1.5, 20), (CrownShape{0.075, 0.7, 0.3}));
  EXPECT_NEAR(Local_Start_Shape(3, 1.5, 20).a, 0.09, 1e-15);
  EXPECT_EQ(Local_Start_Shape(3, 1.5, 20).p, 0.25);
  EXPECT_EQ(Local_Start_Shape(4, 1.5, 20), (CrownShape{0.075, 0.25, 0.3}));
  EXPECT_THROW(Local_Start_Shape(1, 1.5, 0), RunTimeError);
}

TEST(Species, SearchRadiusIsSixTenthsOfTheUsualCrownRadius) {
  // 20 m: crown diameters 13 + 32.72, 14 + 30, 8 + 42.8, 14 + 30 dm.
  EXPECT_NEAR(Search_Radius(1, 20), 45.72 / 10 / 2 * 0.6, 1e-12);
  EXPECT_NEAR(Search_Radius(2, 20), 44 / 10.0 / 2 * 0.6, 1e-12);
  EXPECT_NEAR(Search_Radius(3, 20), 50.8 / 10 / 2 * 0.6, 1e-12);
  EXPECT_NEAR(Search_Radius(4, 20), 44 / 10.0 / 2 * 0.6, 1e-12);
  EXPECT_THROW(Search_Radius(0, 20), RunTimeError);
}

TEST(Species, StemDiameterByHand) {
  // Crown 3.6 m, height 22.5 m: square roots 6 and 15.
  const auto no_report = [](std::string_view) { FAIL(); };
  const double roots[] = {1.323 * 6 - 3.155 + 0.73 * 15, 1.016 * 6 - 3.214 + 0.861 * 15,
                          1.143 * 6 - 3.341 + 0.7 * 15, 1.016 * 6 - 3.214 + 0.861 * 15};
  const double last[] = {0.811, 0.742, 0.78, 0.811};
  for (int s = 1; s <= 4; ++s) {
    const double expected = (roots[s - 1] * roots[s - 1] + last[s - 1]) / 10;
    EXPECT_NEAR(Stem_Diameter(s, 3.6, 22.5, no_report), expected, 1e-12);
  }
}

TEST(Species, ANegativeCrownDiameterIsReportedAndGoesOn) {
  std::string told;
  const double root = 1.323 * 0.0001 - 3.155 + 0.73 * 15;
  EXPECT_NEAR(Stem_Diameter(1, -1, 22.5, [&](std::string_view text) { told = text; }),
              (root * root + 0.811) / 10, 1e-12);
  EXPECT_EQ(told, "Square root of negative argument!");
}

}  // namespace
}  // namespace sylvomex
