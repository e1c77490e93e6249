// SPDX-License-Identifier: MIT
#include "closedlib/moving_windows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "support/failure_of.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

using Pixels = std::vector<std::uint8_t>;

class MovingWindows : public OnEveryVectorUnit {};

Pixels Noise(std::size_t count, unsigned seed) {
  std::mt19937 generator(seed);
  Pixels pixels(count);
  for (std::uint8_t& pixel : pixels) pixel = static_cast<std::uint8_t>(generator() >> 24);
  return pixels;
}

/// The textbook formula of the coefficient: deviations from both means.
double Textbook_Correlation(const Pixels& a, const Pixels& b) {
  const double mean_a = MYFUNC_TEMPMEANSTD(a).mean, mean_b = MYFUNC_TEMPMEANSTD(b).mean;
  double products = 0, squares_a = 0, squares_b = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    products += (a[i] - mean_a) * (b[i] - mean_b);
    squares_a += (a[i] - mean_a) * (a[i] - mean_a);
    squares_b += (b[i] - mean_b) * (b[i] - mean_b);
  }
  return products / std::sqrt(squares_a * squares_b);
}

double Ccora(const Pixels& fixed, const Pixels& moving, int side) {
  return MYFUNC_CCORA(fixed, moving, MYFUNC_TEMPMEANSTD(fixed).mean, side);
}

TEST(SquareCorrelation, HandWorkedExample) {
  // Deviations -3 -1 1 3 and -1 -3 3 1: products 12, squares 20 and 20.
  EXPECT_EQ(Ccora({10, 12, 14, 16}, {22, 20, 26, 24}, 2), 0.6);
}

TEST(SquareCorrelation, MatchesTheTextbookFormulaToRounding) {
  for (const int side : {1, 2, 13, 15, 17, 32}) {
    if (side == 1) continue;
    const auto count = static_cast<std::size_t>(side * side);
    const Pixels a = Noise(count, 1), b = Noise(count, 2);
    EXPECT_NEAR(Ccora(a, b, side), Textbook_Correlation(a, b), 1e-14) << side;
  }
}

TEST(SquareCorrelation, EqualWindowsGiveExactlyOne) {
  const Pixels window = Noise(289, 3);
  EXPECT_EQ(Ccora(window, window, 17), 1);
}

TEST(SquareCorrelation, NegativeGivesExactlyMinusOne) {
  const Pixels window = Noise(289, 3);
  Pixels negative;
  for (const std::uint8_t pixel : window)
    negative.push_back(static_cast<std::uint8_t>(255 - pixel));
  EXPECT_EQ(Ccora(window, negative, 17), -1);
}

TEST(SquareCorrelation, IsZeroWithoutVariance) {
  const Pixels flat(169, 90);
  EXPECT_EQ(Ccora(flat, Noise(169, 4), 13), 0);
  EXPECT_EQ(Ccora(Noise(169, 4), flat, 13), 0);
}

TEST(SquareCorrelation, NamesTheWindowOfAnotherSize) {
  const Pixels square(169, 1), other(168, 1);
  EXPECT_NE(Failure_Of([&] { Ccora(square, other, 13); }).find("moving window of 168 pixels"),
            std::string::npos);
  EXPECT_NE(Failure_Of([&] { Ccora(other, square, 13); }).find("fixed window of 168 pixels"),
            std::string::npos);
}

TEST_F(MovingWindows, CorrelateAsTheSingleWindowRoutineBitForBit) {
  constexpr int kWidth = 120;
  const Pixels raster = Noise(kWidth * 90, 5);
  Run([&] {
    for (int side = 1; side <= kMostWindowSide; ++side) {
      const auto count = static_cast<std::size_t>(side * side);
      const Pixels fixed = Noise(count, 6);
      std::vector<MovingWindow> windows;
      std::vector<double> expected, found(12);
      for (int k = 0; k < 12; ++k) {
        const std::uint8_t* first = raster.data() + 3 * k * kWidth + 5 * k;
        windows.push_back({first, kWidth});
        Pixels moving;
        for (int row = 0; row < side; ++row) {
          moving.insert(moving.end(), first + row * kWidth, first + row * kWidth + side);
        }
        expected.push_back(Ccora(fixed, moving, side));
      }
      Correlate_Windows(FixedWindow(fixed, side), windows, found);
      EXPECT_EQ(found, expected) << side;
    }
  });
}

TEST_F(MovingWindows, HoldTheLargestSums) {
  // Half white, half black, against itself and its negative.
  Pixels halves(1024, 0), negative(1024, 255);
  std::fill_n(halves.begin(), 512, std::uint8_t{255});
  std::fill_n(negative.begin(), 512, std::uint8_t{0});
  const std::vector<MovingWindow> windows{{halves.data(), 32}, {negative.data(), 32}};
  Run([&] {
    std::vector<double> found(2);
    Correlate_Windows(FixedWindow(halves, 32), windows, found);
    EXPECT_EQ(found, (std::vector<double>{1, -1}));
  });
}

TEST_F(MovingWindows, IgnorePixelsBeyondTheSide) {
  Pixels raster = Noise(40 * 40, 7);
  const Pixels fixed = Noise(169, 8);
  const std::vector<MovingWindow> windows{{raster.data(), 40}};
  Run([&] {
    std::vector<double> before(1), after(1);
    Correlate_Windows(FixedWindow(fixed, 13), windows, before);
    for (std::size_t row = 0; row < 40; ++row) raster[row * 40 + 13] ^= 255;
    Correlate_Windows(FixedWindow(fixed, 13), windows, after);
    EXPECT_EQ(before, after);
  });
}

TEST(FixedWindow, RejectsSidesBeyondItsTable) {
  const Pixels pixels(33 * 33, 1);
  EXPECT_NE(Failure_Of([&] { FixedWindow(pixels, 33); }).find("sides of 1 to 32"),
            std::string::npos);
  EXPECT_NE(Failure_Of([&] { FixedWindow(pixels, 0); }), "no failure");
}

}  // namespace
}  // namespace sylvomex
