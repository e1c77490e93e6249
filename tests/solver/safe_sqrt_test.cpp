// SPDX-License-Identifier: MIT
#include "solver/safe_sqrt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace sylvomex {
namespace {

class Told {
 public:
  Report Sink() {
    return [this](std::string_view sentence) { sentences.emplace_back(sentence); };
  }
  std::vector<std::string> sentences;
};

TEST(SafeSqrt, RootOfFourIsTwo) {
  Told told;
  EXPECT_DOUBLE_EQ(Safe_Sqrt(4, told.Sink()), 2);
  EXPECT_TRUE(told.sentences.empty());
}

TEST(SafeSqrt, RootOfZeroIsZeroWithoutAMessage) {
  Told told;
  EXPECT_EQ(Safe_Sqrt(0, told.Sink()), 0);
  EXPECT_TRUE(told.sentences.empty());
}

TEST(SafeSqrt, NegativeArgumentIsReportedAndReturnsASmallNumber) {
  Told told;
  EXPECT_EQ(Safe_Sqrt(-1, told.Sink()), 0.0001);
  EXPECT_EQ(told.sentences, std::vector<std::string>{"Square root of negative argument!"});
}

TEST(SafeSqrt, NaNCountsAsNegative) {
  Told told;
  EXPECT_EQ(Safe_Sqrt(std::nan(""), told.Sink()), 0.0001);
  EXPECT_EQ(told.sentences.size(), 1U);
}

}  // namespace
}  // namespace sylvomex
