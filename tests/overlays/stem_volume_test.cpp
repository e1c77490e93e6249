// SPDX-License-Identifier: MIT
#include "overlays/stem_volume.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

// The same volume computed as a sum of logarithms.
double By_Logarithms(double a, double b, double c, double d, double e, double D, double h) {
  return std::exp(std::log(a) + b * std::log(D) + D * std::log(c) + d * std::log(h) +
                  e * std::log(h - 1.3));
}

TEST(StemVolume, EachSpeciesHasItsRow) {
  const double pine = By_Logarithms(0.036089, 2.01395, 0.99676, 2.07025, -1.07209, 20, 15);
  const double spruce = By_Logarithms(0.022927, 1.91505, 0.99146, 2.82541, -1.53547, 20, 15);
  const double birch = By_Logarithms(0.011197, 2.10253, 0.986, 3.98519, -2.659, 20, 15);
  EXPECT_NEAR(Stem_Volume(1, 200, 15), pine, 1e-9 * pine);
  EXPECT_NEAR(Stem_Volume(2, 200, 15), spruce, 1e-9 * spruce);
  EXPECT_NEAR(Stem_Volume(3, 200, 15), birch, 1e-9 * birch);
}

TEST(StemVolume, SpeciesThreeAndFourUseTheThirdRow) {
  EXPECT_EQ(Stem_Volume(3, 231, 17.4), Stem_Volume(4, 231, 17.4));
  EXPECT_EQ(Stem_Volume(0, 231, 17.4), Stem_Volume(4, 231, 17.4));
  EXPECT_EQ(Stem_Volume(-1, 231, 17.4), Stem_Volume(4, 231, 17.4));
}

// A pine of 20 cm and 15 m has some 0.23 m3: half of a cylinder of 0.47 m3.
TEST(StemVolume, IsInLitres) {
  EXPECT_NEAR(Stem_Volume(1, 200, 15), 235, 15);
  EXPECT_NEAR(Stem_Volume(2, 200, 15), 235, 15);
  EXPECT_NEAR(Stem_Volume(3, 200, 15), 220, 15);
}

TEST(StemVolume, ADiameterOfZeroHasNoVolume) { EXPECT_EQ(Stem_Volume(1, 0, 15), 0); }

TEST(StemVolume, BreastHeightAndBelowAreErrors) {
  for (const double height : {1.3, 1.2, 0.0, -5.0}) {
    EXPECT_THROW(Stem_Volume(1, 200, height), RunTimeError) << height;
  }
  EXPECT_THROW(Stem_Volume(1, -200, 15), RunTimeError);
  EXPECT_GT(Stem_Volume(1, 200, 1.31), 0);
  try {
    Stem_Volume(2, 200, 1.3);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_STREQ(error.what(),
                 "Overflow: no stem volume for a height of 1.3 m and a diameter of 200 mm");
  }
}

}  // namespace
}  // namespace sylvomex
