// SPDX-License-Identifier: MIT
#include "platform/characters.h"

#include <gtest/gtest.h>

#include <string>

namespace sylvomex {
namespace {

TEST(Characters, AccentedLettersCountOnce) {
  EXPECT_EQ(Character_Count(""), 0U);
  EXPECT_EQ(Character_Count("m\u00e4nty p\u00e4\u00e4"), 9U);
  EXPECT_EQ(Character_Count("\u20ac\U0001F332"), 2U);  // of three and of four bytes
}

TEST(Characters, LeftPartNeverSplitsACharacter) {
  EXPECT_EQ(Left_Characters("a\u00e4\u20ac\U0001F332z", 0), "");
  EXPECT_EQ(Left_Characters("a\u00e4\u20ac\U0001F332z", 2), "a\u00e4");
  EXPECT_EQ(Left_Characters("a\u00e4\u20ac\U0001F332z", 3), "a\u00e4\u20ac");
  EXPECT_EQ(Left_Characters("a\u00e4\u20ac\U0001F332z", 4), "a\u00e4\u20ac\U0001F332");
  EXPECT_EQ(Left_Characters("a\u00e4\u20ac\U0001F332z", 99), "a\u00e4\u20ac\U0001F332z");
}

TEST(Characters, EachByteOfAnInvalidSequenceCountsOnce) {
  EXPECT_EQ(Character_Count("\xE4\xF6"), 2U);   // single-byte letters of another encoding
  EXPECT_EQ(Character_Count("\xC3"), 1U);       // truncated
  EXPECT_EQ(Character_Count("\xE2\x82z"), 3U);  // interrupted by a letter
  EXPECT_EQ(Character_Count("\x80\xBF"), 2U);   // without a lead byte
  EXPECT_EQ(Character_Count("\xC0\xAF\xE0\x80\xAF"), 5U);  // overlong
  EXPECT_EQ(Character_Count("\xED\xA0\x80"), 3U);          // half of a surrogate pair
  EXPECT_EQ(Character_Count("\xF4\x90\x80\x80"), 4U);      // past the last code point
  EXPECT_EQ(Character_Count("\xFF\u00e4"), 2U);
}

TEST(Characters, FirstAndLastCodePointOfEachLengthCountOnce) {
  for (const char* text :
       {"\x01", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
        "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(Character_Count(text), 1U);
  }
}

TEST(Characters, TextOfOldFilesBecomesUtf8Too) {
  EXPECT_EQ(As_Utf8(""), "");
  EXPECT_EQ(As_Utf8("m\u00e4nty \u20ac"), "m\u00e4nty \u20ac");  // stays
  EXPECT_EQ(As_Utf8("m\xE4nty"), "m\u00e4nty");
  EXPECT_EQ(As_Utf8("\u00e4\xFF"), "\u00c3\u00a4\u00ff");  // not UTF-8 throughout: by bytes
}

}  // namespace
}  // namespace sylvomex
