// SPDX-License-Identifier: MIT
#include "lidar/echo_listing.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

struct Listing : testing::Test {
  std::string lines;
  int complaints = 0;

  // Ground at 100 m.
  bool List(const LidarPulse& pulse) {
    return List_Pulse(
        pulse, [](double, double) { return 100.0; }, [this] { ++complaints; }, lines);
  }

  // Slot k at X = 10 k + 0.25, Y = 20 k, Z = 100 + k, intensity k, code 7.
  static LidarPulse Pulse(std::uint8_t echo_count) {
    LidarPulse pulse;
    pulse.EchoCount = echo_count;
    pulse.PulseCode = 7;
    for (int k = 1; k <= 4; ++k) {
      pulse.Echo[k - 1] = {10.0 * k + 0.25, 20.0 * k, 100.0 + k, static_cast<std::int16_t>(k), 0};
    }
    return pulse;
  }
};

TEST_F(Listing, AnOnlyEchoIsOfTypeZero) {
  EXPECT_TRUE(List(Pulse(1)));
  EXPECT_EQ(lines, "40.25 80.00 104.00 4.00 004 0 7 1 \n");
  EXPECT_EQ(complaints, 0);
}

TEST_F(Listing, TwoEchoesAreFirstAndLast) {
  EXPECT_TRUE(List(Pulse(2)));
  EXPECT_EQ(lines,
            "40.25 80.00 104.00 4.00 004 1 7 1 \n"
            "30.25 60.00 103.00 3.00 003 3 7 1 \n");
}

TEST_F(Listing, FourEchoesHaveTwoBetween) {
  EXPECT_TRUE(List(Pulse(4)));
  EXPECT_EQ(lines,
            "40.25 80.00 104.00 4.00 004 1 7 1 \n"
            "30.25 60.00 103.00 3.00 003 2 7 1 \n"
            "20.25 40.00 102.00 2.00 002 2 7 1 \n"
            "10.25 20.00 101.00 1.00 001 3 7 1 \n");
}

TEST_F(Listing, ThreeEchoesGiveTwoLinesAndEndIt) {
  EXPECT_FALSE(List(Pulse(3)));
  EXPECT_EQ(lines,
            "40.25 80.00 104.00 4.00 004 1 7 1 \n"
            "30.25 60.00 103.00 3.00 003 2 7 1 \n");
}

TEST_F(Listing, AnyOtherCountHasNoLine) {
  EXPECT_TRUE(List(Pulse(0)));
  EXPECT_TRUE(List(Pulse(5)));
  EXPECT_EQ(lines, "");
  EXPECT_EQ(complaints, 0);
}

TEST_F(Listing, NumbersHaveTheirPatterns) {
  LidarPulse pulse = Pulse(1);
  pulse.Echo[3] = {2516431.2, 6857012.987, 99.5, 1234, 0};
  pulse.PulseCode = -12;
  List(pulse);
  EXPECT_EQ(lines, "2516431.20 6857012.99 99.50 -0.50 1234 0 -12 1 \n");
}

TEST_F(Listing, AnXBelowTenIsReportedForEachEcho) {
  LidarPulse pulse = Pulse(2);
  pulse.Echo[3].X = 9.99;
  pulse.Echo[2].X = 0;
  List(pulse);
  EXPECT_EQ(complaints, 2);
  pulse.Echo[3].X = 10;  // not below
  complaints = 0;
  List(pulse);
  EXPECT_EQ(complaints, 1);
}

TEST_F(Listing, TwoEchoesWithOneXAreReportedOnce) {
  LidarPulse pulse = Pulse(4);
  pulse.Echo[0].X = pulse.Echo[1].X = pulse.Echo[3].X + 0.00000005;
  List(pulse);
  EXPECT_EQ(complaints, 1);
  complaints = 0;
  pulse = Pulse(2);
  pulse.Echo[2].X = pulse.Echo[3].X + 0.0000002;
  List(pulse);
  EXPECT_EQ(complaints, 0);
  pulse = Pulse(3);  // ends before that check
  pulse.Echo[2].X = pulse.Echo[3].X;
  List(pulse);
  EXPECT_EQ(complaints, 0);
}

}  // namespace
}  // namespace sylvomex
