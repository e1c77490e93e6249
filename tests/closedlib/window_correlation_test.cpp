// SPDX-License-Identifier: MIT
#include "closedlib/window_correlation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "closedlib/counted_loop.h"

namespace sylvomex {
namespace {

using Window = std::vector<std::uint8_t>;

double Correlation(const Window& a, const Window& b) {
  return MYFUNC_CCORB(a, b, MYFUNC_TEMPMEANSTD(a).mean);
}

TEST(WindowCorrelation, HandWorkedExample) {
  // Deviations -2 -1 0 1 2 and -1 -3 1 0 3: products 11, squares 10 and 20.
  const Window a{1, 2, 3, 4, 5};
  const Window b{4, 2, 6, 5, 8};
  EXPECT_NEAR(Correlation(a, b), 11 / std::sqrt(200.0), 1e-15);
  EXPECT_NEAR(Correlation(b, a), 11 / std::sqrt(200.0), 1e-15);
}

TEST(WindowCorrelation, LinearChangeOfBrightnessIsPerfect) {
  EXPECT_NEAR(Correlation({10, 20, 40, 80}, {25, 45, 85, 165}), 1, 1e-15);
  EXPECT_NEAR(Correlation({10, 20, 40, 80}, {90, 80, 60, 20}), -1, 1e-15);
}

TEST(WindowCorrelation, IsZeroWithoutVariance) {
  EXPECT_EQ(Correlation({7, 7, 7}, {1, 2, 3}), 0);
  EXPECT_EQ(Correlation({1, 2, 3}, {7, 7, 7}), 0);
  EXPECT_EQ(Correlation({9}, {9}), 0);
  EXPECT_EQ(Correlation({}, {}), 0);
}

TEST(WindowCorrelation, DifferentSizesAreRejectedByName) {
  try {
    Correlation({1, 2, 3}, {1, 2});
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::SubscriptOutOfRange);
    const std::string text = error.what();
    EXPECT_NE(text.find("3 pixels"), std::string::npos);
    EXPECT_NE(text.find("2 pixels"), std::string::npos);
  }
}

TEST(WindowStatistics, MeanAndSampleDeviation) {
  // Squares about the mean 5: 9 1 1 1 0 0 4 16 = 32, over n - 1 = 7.
  const WindowStatistics statistics = MYFUNC_TEMPMEANSTD(Window{2, 4, 4, 4, 5, 5, 7, 9});
  EXPECT_EQ(statistics.mean, 5);
  EXPECT_NEAR(statistics.deviation, std::sqrt(32.0 / 7), 1e-15);
}

TEST(WindowStatistics, OfOnePixelHaveNoDeviation) {
  EXPECT_EQ(MYFUNC_TEMPMEANSTD(Window{200}).mean, 200);
  EXPECT_EQ(MYFUNC_TEMPMEANSTD(Window{200}).deviation, 0);
  EXPECT_EQ(MYFUNC_TEMPMEANSTD(Window{}).mean, 0);
}

TEST(CountedLoop, CountsBothEnds) {
  EXPECT_EQ(Loop_Passes(-5, 5, 0.1), 101);
  EXPECT_EQ(Loop_Passes(175.3, 185.3, 0.1), 101);
  EXPECT_EQ(Loop_Passes(0, 0.99, 1), 1);
  EXPECT_EQ(Loop_Passes(3, 3, 1), 1);
}

TEST(CountedLoop, HasNoPassBackwardsOrWithNaN) {
  EXPECT_EQ(Loop_Passes(1, 0, 0.1), 0);
  EXPECT_EQ(Loop_Passes(std::nan(""), 0, 0.1), 0);
}

TEST(CountedLoop, RejectsMoreThanAMillionPasses) {
  EXPECT_EQ(Loop_Passes(1, 1'000'000, 1), 1'000'000);
  EXPECT_THROW(Loop_Passes(0, 1'000'000, 1), RunTimeError);
}

}  // namespace
}  // namespace sylvomex
