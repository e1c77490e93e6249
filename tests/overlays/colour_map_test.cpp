// SPDX-License-Identifier: MIT
#include "overlays/colour_map.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/run_time_error.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

std::string Rows_Of_Colours(int count) {
  std::string rows;
  for (int i = 1; i <= count; ++i) rows += std::to_string(i) + ",0,200\n";
  return rows;
}

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

TEST(ColourRow, ValuesAboveTheScaleAreNotClampedBefore) { EXPECT_EQ(Colour_Row(1e6, 0, 255), 63); }

TEST(ColourRow, TheTwoSubtractionsTakePartInTheRounding) {
  // 10.500000000000004 alone rounds to 11, row 3; 255 - it is 244.5 in double precision.
  EXPECT_EQ(Colour_Row(10.500000000000004, 0, 255), 2);
}

TEST(ColourRow, NaNIsAnOverflow) {
  EXPECT_THROW(Colour_Row(std::numeric_limits<double>::quiet_NaN(), 0, 1), RunTimeError);
  EXPECT_THROW(Colour_Row(1, 1, 1), RunTimeError);
}

TEST(ColourMap, SixtyFourRowsFillTheTable) {
  TemporaryFolder folder;
  const ColourMap map = Read_Colour_Map(folder.Write("c/map.csv", Rows_Of_Colours(64)));
  EXPECT_EQ(map(1), (Colour{1, 0, 200}));
  EXPECT_EQ(map(64), (Colour{64, 0, 200}));
}

TEST(ColourMap, SixtyFiveRowsAreASubscriptError) {
  TemporaryFolder folder;
  const FilePath file = folder.Write("c/map.csv", Rows_Of_Colours(65));
  try {
    Read_Colour_Map(file);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::SubscriptOutOfRange);
    EXPECT_NE(std::string(error.what()).find("line 65"), std::string::npos);
  }
}

TEST(ColourMap, FewerRowsLeaveTheRestZero) {
  TemporaryFolder folder;
  const ColourMap map = Read_Colour_Map(folder.Write("c/map.csv", Rows_Of_Colours(2)));
  EXPECT_EQ(map(2), (Colour{2, 0, 200}));
  EXPECT_EQ(map(3), Colour{});
  EXPECT_EQ(map(64), Colour{});
}

TEST(ColourMap, AValueThatIsNotAByteIsNamed) {
  TemporaryFolder folder;
  EXPECT_THROW(Read_Colour_Map(folder.Write("c/map.csv", "1,2,256\n")), RunTimeError);
  EXPECT_THROW(Read_Colour_Map(folder.Write("c/map.csv", "1,2\n")), RunTimeError);
}

}  // namespace
}  // namespace sylvomex
