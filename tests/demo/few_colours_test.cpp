// SPDX-License-Identifier: MIT
#include "demo/guide/few_colours.h"

#include <gtest/gtest.h>

namespace sylvomex::demo {
namespace {

std::uint32_t Colour(int red, int green, int blue) {
  return static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
}

TEST(FewColours, APictureOfFewColoursKeepsThem) {
  const std::vector<std::uint32_t> pixels{Colour(1, 2, 3), Colour(255, 0, 9), Colour(1, 2, 3), 0,
                                          Colour(1, 2, 4)};
  const FewColours few = In_Few_Colours(pixels);
  EXPECT_EQ(few.palette.size(), 4U);
  ASSERT_EQ(few.pixels.size(), pixels.size());
  for (std::size_t k = 0; k < pixels.size(); ++k) {
    EXPECT_EQ(few.palette[few.pixels[k]], pixels[k]);
  }
}

// 4096 colours on a lattice of 16 in each channel: a box of 16 of them is 16 by 16 by 64 wide, or
// less skewed, and no colour is farther from its mean than that.
TEST(FewColours, OfManyAtMost256AreLeftAndNoneIsFarAway) {
  std::vector<std::uint32_t> pixels;
  for (int k = 0; k < 4096; ++k)
    pixels.push_back(Colour(k / 256 * 16, k / 16 % 16 * 16, k % 16 * 16));
  const FewColours few = In_Few_Colours(pixels);
  EXPECT_EQ(few.palette.size(), 256U);
  for (std::size_t k = 0; k < pixels.size(); ++k) {
    for (const int shift : {16, 8, 0}) {
      const int given = static_cast<int>(pixels[k] >> shift & 255);
      const int shown = static_cast<int>(few.palette[few.pixels[k]] >> shift & 255);
      EXPECT_LE(std::abs(given - shown), 32) << k;
    }
  }
}

TEST(FewColours, AnEmptyPictureHasNone) { EXPECT_TRUE(In_Few_Colours({}).palette.empty()); }

}  // namespace
}  // namespace sylvomex::demo
