// SPDX-License-Identifier: MIT
#include "platform/rounding.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>
#include <random>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <class Convert>
std::string Failure_Of(Convert convert, double value) {
  try {
    convert(value);
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::Overflow);
    return error.what();
  }
  return "";
}

TEST(RoundHalfEven, TiesGoToTheEvenInteger) {
  EXPECT_EQ(Round_Half_Even(0.5), 0);
  EXPECT_EQ(Round_Half_Even(1.5), 2);
  EXPECT_EQ(Round_Half_Even(2.5), 2);
  EXPECT_EQ(Round_Half_Even(3.5), 4);
  EXPECT_EQ(Round_Half_Even(-0.5), 0);
  EXPECT_EQ(Round_Half_Even(-1.5), -2);
  EXPECT_EQ(Round_Half_Even(-2.5), -2);
}

TEST(RoundHalfEven, NeighboursOfATieGoToTheNearest) {
  EXPECT_EQ(Round_Half_Even(std::nextafter(0.5, 0.0)), 0);
  EXPECT_EQ(Round_Half_Even(std::nextafter(0.5, 1.0)), 1);
  EXPECT_EQ(Round_Half_Even(std::nextafter(2.5, 3.0)), 3);
  EXPECT_EQ(Round_Half_Even(std::nextafter(-1.5, 0.0)), -1);
  EXPECT_EQ(Round_Half_Even(4503599627370495.5), 4503599627370496.0);
  EXPECT_EQ(Round_Half_Even(4503599627370494.5), 4503599627370494.0);
}

TEST(RoundHalfEven, LargeAndNonFiniteValuesStayUnchanged) {
  EXPECT_EQ(Round_Half_Even(9007199254740993.0), 9007199254740993.0);
  EXPECT_EQ(Round_Half_Even(-1e300), -1e300);
  EXPECT_EQ(Round_Half_Even(kInfinity), kInfinity);
  EXPECT_TRUE(std::isnan(Round_Half_Even(kNaN)));
}

TEST(RoundHalfEven, AgreesWithTheProcessorInItsDefaultMode) {
  std::mt19937_64 random(1);
  std::uniform_int_distribution<int> eighths(-80000, 80000);
  for (int i = 0; i < 10000; ++i) {
    const double value = eighths(random) / 8.0;
    ASSERT_EQ(Round_Half_Even(value), std::nearbyint(value)) << value;
  }
}

TEST(RoundHalfEven, DoesNotDependOnTheRoundingMode) {
  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    ASSERT_EQ(std::fesetround(mode), 0);
    const double up = Round_Half_Even(2.75);
    const double tie = Round_Half_Even(2.5);
    const double down = Round_Half_Even(-2.25);
    const double near_tie = Round_Half_Even(-0.49999999999999994);
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(up, 3);
    EXPECT_EQ(tie, 2);
    EXPECT_EQ(down, -2);
    EXPECT_EQ(near_tie, 0);
  }
}

TEST(ToInt16, AcceptsWhatRoundsIntoItsRange) {
  EXPECT_EQ(To_Int16(32767.49), 32767);
  EXPECT_EQ(To_Int16(-32768.5), -32768);
  EXPECT_EQ(To_Int16(-0.5), 0);
}

TEST(ToInt16, BeyondItsRangeIsAnOverflowThatNamesTheValue) {
  EXPECT_EQ(Failure_Of(To_Int16, 40000), "Overflow: 40000 is not in -32768 to 32767");
  EXPECT_EQ(Failure_Of(To_Int16, 32767.5), "Overflow: 32767.5 is not in -32768 to 32767");
  EXPECT_EQ(Failure_Of(To_Int16, -32769), "Overflow: -32769 is not in -32768 to 32767");
}

TEST(ToInt16, NonFiniteValuesOverflow) {
  EXPECT_EQ(Failure_Of(To_Int16, kNaN), "Overflow: NaN is not in -32768 to 32767");
  EXPECT_EQ(Failure_Of(To_Int16, -kInfinity), "Overflow: -Inf is not in -32768 to 32767");
}

TEST(ToInt32, AcceptsItsWholeRangeAndNoMore) {
  EXPECT_EQ(To_Int32(2147483647.0), 2147483647);
  EXPECT_EQ(To_Int32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(Failure_Of(To_Int32, 2147483648.0),
            "Overflow: 2147483648 is not in -2147483648 to 2147483647");
  EXPECT_EQ(Failure_Of(To_Int32, 1e20), "Overflow: 1E+20 is not in -2147483648 to 2147483647");
}

TEST(ToByte, AcceptsZeroTo255) {
  EXPECT_EQ(To_Byte(254.5), 254);
  EXPECT_EQ(To_Byte(255.4), 255);
  EXPECT_EQ(To_Byte(-0.5), 0);
  EXPECT_EQ(Failure_Of(To_Byte, 255.5), "Overflow: 255.5 is not in 0 to 255");
  EXPECT_EQ(Failure_Of(To_Byte, -1), "Overflow: -1 is not in 0 to 255");
}

}  // namespace
}  // namespace sylvomex
