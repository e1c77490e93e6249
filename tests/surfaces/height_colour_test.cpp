// SPDX-License-Identifier: MIT
#include "surfaces/height_colour.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

TEST(HeightColour, LowHeightsTakeTheFirstRow) {
  EXPECT_EQ(Height_Colour_Row(-20), 1);
  EXPECT_EQ(Height_Colour_Row(160), 1);
  EXPECT_EQ(Height_Colour_Row(401.4), 1);  // index 3.97, raised to 4
}

TEST(HeightColour, RowsCountFourColoursAndRoundOnce) {
  // 255 x 45 / 90 = 127.5, / 4 = 31.875.
  EXPECT_EQ(Height_Colour_Row(445), 32);
  // 255 x 6 / 90 = 17, / 4 = 4.25; 255 x 3.6 / 90 = 10.2, / 4 = 2.55: a first rounding to 10
  // would make it 2.5 and row 2.
  EXPECT_EQ(Height_Colour_Row(406), 4);
  EXPECT_EQ(Height_Colour_Row(403.6), 3);
}

TEST(HeightColour, HighHeightsTakeRow63) {
  EXPECT_EQ(Height_Colour_Row(490), 63);    // index 255, set to 253
  EXPECT_EQ(Height_Colour_Row(490.1), 63);  // as 489.5: 253.58, / 4 = 63.4
  EXPECT_EQ(Height_Colour_Row(9000), 63);
}

}  // namespace
}  // namespace sylvomex
