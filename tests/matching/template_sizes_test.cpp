// SPDX-License-Identifier: MIT
#include "matching/template_sizes.h"

#include "matching/test_photo.h"

namespace sylvomex {
namespace {

ImageTemplate Pattern(int width, int height, std::vector<std::uint8_t> pixels) {
  return {width, height, 0, 0, std::move(pixels)};
}

TEST(SmoothTemplate, ThreeByThreeByHand) {
  ImageTemplate pattern = Pattern(3, 3, {0, 16, 0, 16, 32, 16, 0, 16, 48});
  Smooth_Template(pattern);
  // 48 / 16 + 64 / 8 + 32 / 4; the border stays.
  EXPECT_EQ(pattern.pixels, (std::vector<std::uint8_t>{0, 16, 0, 16, 19, 16, 0, 16, 48}));
}

TEST(SmoothTemplate, FourByFourInPlaceColumnByColumn) {
  ImageTemplate pattern = Pattern(4, 4, {0, 0, 0, 0, 0, 160, 0, 0, 0, 100, 0, 0, 0, 0, 0, 0});
  Smooth_Template(pattern);
  // (1, 1): 160 / 4 + 100 / 8 = 52.5, to the even 52. (1, 2): 100 / 4 + 52 / 8 = 31.5, to 32.
  // (2, 1): 52 / 8 + 32 / 16 = 8.5, to 8 (by rows it would be 52 / 8 + 100 / 16 = 12.75).
  // (2, 2): 32 / 8 + 52 / 16 + 8 / 8 = 8.25.
  EXPECT_EQ(pattern.pixels,
            (std::vector<std::uint8_t>{0, 0, 0, 0, 0, 52, 8, 0, 0, 32, 8, 0, 0, 0, 0, 0}));
}

TEST(SmoothTemplate, TwoColumnsHaveNothingInside) {
  ImageTemplate pattern = Pattern(2, 3, {1, 2, 3, 4, 5, 6});
  Smooth_Template(pattern);
  EXPECT_EQ(pattern.pixels, (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6}));
}

TEST(TentWeight, FallsFromTheMiddleToTheRadius) {
  EXPECT_EQ(Tent_Weight(0, 1), 1);
  EXPECT_EQ(Tent_Weight(-0.25, 1), 0.75);
  EXPECT_EQ(Tent_Weight(1, 1), 0);
  EXPECT_EQ(Tent_Weight(-1.5, 1), 0);
  EXPECT_EQ(Tent_Weight(0, 2), 0.5);
  EXPECT_EQ(Tent_Weight(1, 2), 0.25);
}

ImageTemplate Ramp() {
  ImageTemplate ramp = Pattern(5, 5, {});
  for (int row = 0; row < 5; ++row) {
    for (int col = 0; col < 5; ++col) {
      ramp.pixels.push_back(static_cast<std::uint8_t>(10 * col + 4 * row));
    }
  }
  return ramp;
}

TEST(ResampleTemplate, ARampStaysARampAtAnySize) {
  const ImageTemplate finer = Resample_Template(Ramp(), {9, 9, 3, 2});
  EXPECT_EQ(finer.width, 9);
  EXPECT_EQ(finer.reference_col, 3);
  EXPECT_EQ(finer.reference_row, 2);
  for (std::size_t j = 0; j < 9; ++j) {
    for (std::size_t i = 0; i < 9; ++i) EXPECT_EQ(finer.pixels[9 * j + i], 5 * i + 2 * j);
  }
  EXPECT_EQ(Resample_Template(Ramp(), {3, 2, 0, 0}).pixels,
            (std::vector<std::uint8_t>{0, 20, 40, 16, 36, 56}));
}

TEST(ResampleTemplate, ItsOwnSizeIsACopy) {
  EXPECT_EQ(Resample_Template(Ramp(), {5, 5, 0, 0}).pixels, Ramp().pixels);
}

TEST(ResampleTemplate, HalvesRoundToTheEvenValue) {
  // Between 1, 2, 3: 1, 1.5, 2, 2.5, 3 on both rows.
  const ImageTemplate source = Pattern(3, 2, {1, 2, 3, 1, 2, 3});
  EXPECT_EQ(Resample_Template(source, {5, 2, 0, 0}).pixels,
            (std::vector<std::uint8_t>{1, 2, 2, 2, 3, 1, 2, 2, 2, 3}));
}

TEST(ResampleTemplate, OnePixelIsADivisionByZero) {
  Failure_Of(Failure::DivisionByZero, [] { Resample_Template(Ramp(), {1, 5, 0, 0}); });
  Failure_Of(Failure::DivisionByZero, [] { Resample_Template(Ramp(), {5, 1, 0, 0}); });
}

TEST(SizeTable, ElevenFactorsRoundedHalfToEven) {
  ImageTemplate pattern = Pattern(45, 30, {});
  pattern.reference_col = 5;
  const SizeTable table = Make_Size_Table(pattern);
  EXPECT_EQ(table[0].width, 18);
  EXPECT_EQ(table[1].width, 22);  // 22.5 to the even value
  EXPECT_EQ(table[3].width, 31);  // 45 x 0.7 is 31.499999999999996 in double
  EXPECT_EQ(table[8].width, 45);
  EXPECT_EQ(table[10].height, 36);
  EXPECT_EQ(table[1].reference_col, 2);  // 2.5
}

TEST(SizeTable, AnEntryOutsideAByteIsAnOverflow) {
  EXPECT_EQ(Make_Size_Table(Pattern(212, 5, {}))[10].width, 254);
  Failure_Of(Failure::Overflow, [] { Make_Size_Table(Pattern(213, 5, {})); });
  ImageTemplate pattern = Pattern(10, 10, {});
  pattern.reference_row = -2;
  Failure_Of(Failure::Overflow, [&pattern] { Make_Size_Table(pattern); });
}

}  // namespace
}  // namespace sylvomex
