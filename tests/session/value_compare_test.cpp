// SPDX-License-Identifier: MIT
#include "session/value_compare.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

TEST(ValuesAgree, TextsCompareWhole) {
  EXPECT_TRUE(Values_Agree("Program status", "Program status"));
  EXPECT_FALSE(Values_Agree("Program status", "Program"));
  EXPECT_FALSE(Values_Agree("Program status", "program status"));
  EXPECT_TRUE(Values_Agree("", ""));
  EXPECT_FALSE(Values_Agree("", "0"));
}

TEST(ValuesAgree, NumbersCompareToOnePartInABillion) {
  EXPECT_TRUE(Values_Agree("2515000", "2515000.002"));
  EXPECT_FALSE(Values_Agree("2515000", "2515000.003"));
  EXPECT_TRUE(Values_Agree("0.10000000000000001", "0.1"));
  EXPECT_TRUE(Values_Agree("-1e3", "-1000"));
}

TEST(ValuesAgree, OnlyZeroAgreesWithZero) {
  EXPECT_TRUE(Values_Agree("0", "0.000"));
  EXPECT_TRUE(Values_Agree("-0", "0"));
  EXPECT_FALSE(Values_Agree("1e-300", "0"));
}

TEST(ValuesAgree, ListsCompareNumberByNumber) {
  EXPECT_TRUE(Values_Agree("1 2 3", "1.0 2.0 3.0000000001"));
  EXPECT_FALSE(Values_Agree("1 2 3", "1 2 4"));
  EXPECT_FALSE(Values_Agree("1 2 3", "1 2"));
}

TEST(ValuesAgree, ANumberWithALetterIsAText) {
  EXPECT_FALSE(Values_Agree("12 m", "12.0 m"));
  EXPECT_TRUE(Values_Agree("12 m", "12 m"));
}

}  // namespace
}  // namespace sylvomex
