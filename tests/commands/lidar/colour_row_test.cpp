// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>

#include "commands/overlays/colour_map.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

TEST(ColourRow, TheEndsOfTheScaleAreRows1And63) {
  EXPECT_EQ(Colour_Row(30, 30, 120), 1);       // index 0, raised to 4
  EXPECT_EQ(Colour_Row(119.98, 30, 120), 63);  // 254.94: 255, set to 253
  EXPECT_EQ(Colour_Row(120, 30, 120), 63);
}

TEST(ColourRow, TiesGoToTheEvenNumber) {
  EXPECT_EQ(Colour_Row(75, 30, 120), 32);  // 127.5: 128
  EXPECT_EQ(Colour_Row(0, -0.2, 1), 10);   // 42.5: 42; 10.5: 10
  EXPECT_EQ(Colour_Row(14, 0, 255), 4);    // 3.5: 4
  EXPECT_EQ(Colour_Row(10, 0, 255), 2);    // 2.5: 2
}

TEST(ColourRow, Index254StaysAndRoundsUp) { EXPECT_EQ(Colour_Row(254, 0, 255), 64); }

TEST(ColourRow, IndicesBelowFourAreRaised) {
  EXPECT_EQ(Colour_Row(3, 0, 255), 1);
  EXPECT_EQ(Colour_Row(-1000, 0, 255), 1);
}

TEST(ColourRow, ValuesAboveTheScaleAreNotCutBefore) { EXPECT_EQ(Colour_Row(1e6, 0, 255), 63); }

TEST(ColourRow, TheTwoSubtractionsTakePartInTheRounding) {
  // 10.500000000000004 alone rounds to 11, row 3; 255 - it is 244.5 in double precision.
  EXPECT_EQ(Colour_Row(10.500000000000004, 0, 255), 2);
}

TEST(ColourRow, NaNIsAnOverflow) {
  EXPECT_THROW(Colour_Row(std::numeric_limits<double>::quiet_NaN(), 0, 1), RunTimeError);
  EXPECT_THROW(Colour_Row(1, 1, 1), RunTimeError);
}

}  // namespace
}  // namespace sylvomex
