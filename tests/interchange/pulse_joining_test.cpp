// SPDX-License-Identifier: MIT
#include "interchange/pulse_joining.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

struct Seen {
  double time;
  int number, returns;
};

/// Joins echoes, which carry their place as intensity, and tells the places of each pulse.
std::vector<std::vector<int>> Joined(const std::vector<Seen>& seen) {
  std::vector<EchoRecord> echoes;
  for (const Seen& one : seen) {
    EchoRecord echo;
    echo.key = Time_Key(one.time);
    echo.returns = static_cast<std::uint8_t>(one.number + 16 * one.returns);
    echo.intensity = static_cast<std::uint16_t>(echoes.size());
    echoes.push_back(echo);
  }
  std::vector<std::vector<int>> pulses;
  for (const PulseSpan& span : Join_Pulses(echoes)) {
    pulses.emplace_back();
    for (std::uint32_t i = span.begin; i < span.end; ++i)
      pulses.back().push_back(echoes[i].intensity);
  }
  return pulses;
}

using Pulses = std::vector<std::vector<int>>;

TEST(PulseJoining, EchoesOfOneTimeAreOnePulseInTheOrderOfTheirReturns) {
  EXPECT_EQ(Joined({{5, 2, 3}, {4, 1, 1}, {5, 3, 3}, {5, 1, 3}}), (Pulses{{1}, {3, 0, 2}}));
}

TEST(PulseJoining, NegativeTimesComeFirst) {
  EXPECT_EQ(Joined({{1, 1, 1}, {0, 1, 1}, {-1, 1, 1}, {-2.5, 1, 1}}), (Pulses{{3}, {2}, {1}, {0}}));
}

TEST(PulseJoining, ATimeWithARepeatedReturnIsDividedByFileOrder) {
  EXPECT_EQ(Joined({{5, 1, 2}, {5, 2, 2}, {5, 1, 2}, {5, 2, 2}}), (Pulses{{0, 1}, {2, 3}}));
  EXPECT_EQ(Joined({{5, 1, 2}, {5, 1, 2}, {5, 2, 2}, {5, 2, 2}}), (Pulses{{0, 2}, {1, 3}}));
}

TEST(PulseJoining, AnEchoJoinsAPulseOfItsNumberOfReturns) {
  EXPECT_EQ(Joined({{5, 1, 1}, {5, 1, 2}, {5, 2, 2}}), (Pulses{{0}, {1, 2}}));
}

TEST(PulseJoining, MissingReturnsLeaveNoGap) {
  EXPECT_EQ(Joined({{5, 4, 5}, {5, 2, 5}}), (Pulses{{1, 0}}));
}

TEST(PulseJoining, NoEchoesAreNoPulses) { EXPECT_TRUE(Joined({}).empty()); }

TEST(TimeKey, KeepsOrderAndValue) {
  const double times[] = {-1e300, -2, -1e-300, 0, 1e-300, 1, 2, 345678.123456, 1e300};
  for (std::size_t i = 0; i < std::size(times); ++i) {
    EXPECT_EQ(Time_Of(Time_Key(times[i])), times[i]);
    if (i > 0) {
      EXPECT_LT(Time_Key(times[i - 1]), Time_Key(times[i]));
    }
  }
  EXPECT_EQ(Time_Key(-0.0), Time_Key(0.0));
  EXPECT_LT(Time_Key(1e300), Untimed_Key(0));
  EXPECT_EQ(Time_Of(Untimed_Key(7)), 0);
}

}  // namespace
}  // namespace sylvomex
