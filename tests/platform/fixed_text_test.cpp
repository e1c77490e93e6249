// SPDX-License-Identifier: MIT
#include "platform/fixed_text.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

TEST(FixedText, ShortTextIsPaddedWithBlanks) {
  const FixedText<5> text("ab");
  EXPECT_EQ(text.Padded(), "ab   ");
  EXPECT_EQ(text.Trimmed(), "ab");
}

TEST(FixedText, LongTextIsCut) {
  const FixedText<5> text("abcdefg");
  EXPECT_EQ(text.Padded(), "abcde");
  EXPECT_EQ(text.Trimmed(), "abcde");
}

TEST(FixedText, StartsBlank) {
  const FixedText<3> text;
  EXPECT_EQ(text.Padded(), "   ");
  EXPECT_EQ(text.Trimmed(), "");
}

TEST(FixedText, AssignmentLeavesNothingOfTheOldText) {
  FixedText<6> text("abcdef");
  text = "x";
  EXPECT_EQ(text.Padded(), "x     ");
}

TEST(FixedText, LeadingBlanksStay) { EXPECT_EQ(FixedText<6>("  ab ").Trimmed(), "  ab"); }

TEST(FixedText, PadsAndCutsByCharactersNotBytes) {
  EXPECT_EQ(FixedText<6>("p\u00e4\u00e4").Padded(), "p\u00e4\u00e4   ");
  EXPECT_EQ(FixedText<2>("p\u00e4\u00e4").Padded(), "p\u00e4");
  EXPECT_EQ(FixedText<3>("\xC3p\xE4z").Padded(), "\xC3p\xE4");
}

}  // namespace
}  // namespace sylvomex
