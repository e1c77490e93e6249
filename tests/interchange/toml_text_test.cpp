// SPDX-License-Identifier: MIT
#include "interchange/toml_text.h"

#include <gtest/gtest.h>

#include <string>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

std::string Refusal_Of(std::string_view text) {
  try {
    (void)Parse_Toml(text, "x.toml");
  } catch (const Refused& refused) {
    return refused.what();
  }
  return "";
}

TEST(TomlText, LegalTextsOfEveryKindArePassedOn) {
  const toml::table table = Parse_Toml(
      "# Kolmas säde \xE2\x82\xAC\r\n"
      "plain = 1\n"
      "\"key of \xC3\xA4\" = 'literal with \" and #'\n"
      "long = \"\"\"two\nlines [; with \"\" and \\\"\"\"\"\"\n"
      "also = '''it's\n[;'''\n"
      "list = [ 1, # one\n  [ 2, 3 ],\n]\n"
      "[ table . \"in quotes\" ]\n"
      "\t[[several]]\n"
      "inline = { a = 1, b = [ \"]\" ] }\n",
      "x.toml");
  EXPECT_EQ(table["plain"].value<int>(), 1);
  EXPECT_EQ(table["key of \xC3\xA4"].value<std::string>(), "literal with \" and #");
  EXPECT_EQ(table["long"].value<std::string>(), "two\nlines [; with \"\" and \"\"");
  EXPECT_EQ(table["also"].value<std::string>(), "it's\n[;");
  EXPECT_EQ(table["list"][1][1].value<int>(), 3);
  EXPECT_TRUE(table["table"]["in quotes"].is_table());
  EXPECT_EQ(table["several"][0]["inline"]["b"][0].value<std::string>(), "]");
}

TEST(TomlText, StringsOfEveryLetterAreReadAsTheyStand) {
  const std::string a = "\xC3\xA4", euro = "\xE2\x82\xAC", tree = "\xF0\x9F\x8C\xB2";
  const std::string text = "basic = \"" + a + "\\\\" + euro + "\\t\"  # " + a + "\n" +
                           "literal = '\\" + a + "\"'\n" + "many = \"\"\"\n" + a + "\\\n   " +
                           tree + "\"\"\"\"\n" + "also = '''\n\\" + tree + "''\n\"\"\"'''\n" +
                           "\"" + a + "\".b = 1\n";
  const toml::table table = Parse_Toml(text, "x.toml");
  EXPECT_EQ(table["basic"].value<std::string>(), a + "\\" + euro + "\t");
  EXPECT_EQ(table["literal"].value<std::string>(), "\\" + a + "\"");
  EXPECT_EQ(table["many"].value<std::string>(), a + tree + "\"");
  EXPECT_EQ(table["also"].value<std::string>(), "\\" + tree + "''\n\"\"\"");
  EXPECT_EQ(table[a]["b"].value<int>(), 1);
}

TEST(TomlText, ALetterBehindABackslashIsNoEscape) {
  EXPECT_NE(Refusal_Of("a = \"\\\xC3\xA4\"\n"), "");
  EXPECT_NE(Refusal_Of("a = \"\"\"\n\\\xC3\xA4\"\"\"\n"), "");
}

TEST(TomlText, AByteOrderMarkIsPassedOver) {
  EXPECT_EQ(Parse_Toml("\xEF\xBB\xBF[a]\nb = 2\n", "x.toml")["a"]["b"].value<int>(), 2);
}

TEST(TomlText, WhatTheParserTakesForGrantedIsRefusedWithItsLine) {
  const std::string cause = ": no TOML: a character or the end of the text where neither can be";
  EXPECT_EQ(Refusal_Of("a = 1\n\n [;x]\nb = 2\n"), "x.toml, line 3" + cause);
  EXPECT_EQ(Refusal_Of("[ ="), "x.toml, line 1" + cause);
  EXPECT_EQ(Refusal_Of("a = 1\nb = [}]\n"), "x.toml, line 2" + cause);
}

TEST(TomlText, LettersBeyondAsciiOutsideStringsAreRefused) {
  EXPECT_EQ(Refusal_Of("b\xC3\xA4 = 1\n"),
            "x.toml, line 1: no TOML: a letter that is not ASCII outside of a string");
  EXPECT_NE(Refusal_Of("a = 1\n\xE2\x80\x80\n"), "");
  EXPECT_NE(Refusal_Of("a = 2\"c\xCB\xA3"), "");
  EXPECT_NE(Refusal_Of("a = [ 1,\n\xEF\xBF\xBD ]\n"), "");
}

TEST(TomlText, BytesThatAreNoUtf8AreRefusedAlsoWithinStringsAndComments) {
  for (const char* bytes : {"\xFF", "\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                            "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
    EXPECT_EQ(Refusal_Of("\na = \"" + std::string(bytes) + "\"\n"),
              "x.toml, line 2: no TOML: a byte that is no UTF-8");
    EXPECT_EQ(Refusal_Of("#" + std::string(bytes)),
              "x.toml, line 1: no TOML: a byte that is no UTF-8");
  }
}

TEST(TomlText, ControlCharactersAreRefused) {
  EXPECT_EQ(Refusal_Of(std::string("a = 1\nb\0= 2\n", 12)),
            "x.toml, line 2: no TOML: a control character");
  EXPECT_NE(Refusal_Of("a = '\x7F'\n"), "");
  EXPECT_NE(Refusal_Of("a = 1\rb = 2\n"), "");
}

TEST(TomlText, WhatTheParserRefusesHasItsLineToo) {
  const std::string text = Refusal_Of("a = 1\na = 2\n");
  EXPECT_EQ(text.find("x.toml, line 2: no TOML: "), 0U) << text;
}

}  // namespace
}  // namespace sylvomex
