// SPDX-License-Identifier: MIT
#include "session/script_reader.h"

#include <gtest/gtest.h>

#include <sstream>

namespace sylvomex {
namespace {

std::vector<std::string> Texts(std::string_view line) {
  std::vector<std::string> texts;
  for (const ScriptWord& word : Split_Line(line)) texts.push_back(word.text);
  return texts;
}

using Strings = std::vector<std::string>;

TEST(ScriptReader, BlanksAndTabsSeparateWords) {
  EXPECT_EQ(Texts("  click\tPicture1(0)  12.5 7 "), (Strings{"click", "Picture1(0)", "12.5", "7"}));
}

TEST(ScriptReader, QuotesHoldBlanksTogether) {
  EXPECT_EQ(Texts(R"(input "two words")"), (Strings{"input", "two words"}));
}

TEST(ScriptReader, EmptyQuotesAreAnEmptyWord) {
  EXPECT_EQ(Texts(R"(input "")"), (Strings{"input", ""}));
}

TEST(ScriptReader, DoubledQuoteInsideIsOneQuote) {
  EXPECT_EQ(Texts(R"(say "a ""b"" c" """")"), (Strings{"say", R"(a "b" c)", "\""}));
}

TEST(ScriptReader, BackslashIsAnOrdinaryCharacter) {
  EXPECT_EQ(Texts(R"(file c:\data\new.hdr "c:\a b\")"),
            (Strings{"file", R"(c:\data\new.hdr)", R"(c:\a b\)"}));
}

TEST(ScriptReader, RawWordKeepsItsQuotes) {
  const std::vector<ScriptWord> words = Split_Line(R"(call Format 1 "#.0 ""m""")");
  EXPECT_EQ(words[3].raw, R"("#.0 ""m""")");
  EXPECT_EQ(words[3].text, R"(#.0 "m")");
}

TEST(ScriptReader, CommentsAndBlankLinesHaveNoWords) {
  EXPECT_TRUE(Split_Line("").empty());
  EXPECT_TRUE(Split_Line(" \t ").empty());
  EXPECT_TRUE(Split_Line("# menu Exit").empty());
  EXPECT_EQ(Texts("say # 1"), (Strings{"say", "#", "1"}));
}

TEST(ScriptReader, MissingClosingQuoteIsASyntaxError) {
  EXPECT_THROW(Split_Line(R"(say "open)"), ScriptSyntaxError);
  EXPECT_THROW(Split_Line(R"(say "open"")"), ScriptSyntaxError);
}

TEST(ScriptReader, TextRightAfterAClosingQuoteIsASyntaxError) {
  EXPECT_THROW(Split_Line(R"(say "a"b)"), ScriptSyntaxError);
}

TEST(ScriptReader, CountsLinesAndAcceptsCarriageReturns) {
  std::istringstream script("# head\r\n\r\nsay one\r\n\nsay two");
  ScriptReader reader(script);
  const auto one = reader.Next();
  const auto two = reader.Next();
  ASSERT_TRUE(one && two);
  EXPECT_EQ(one->line, 3);
  EXPECT_EQ(one->words[1].text, "one");
  EXPECT_EQ(two->line, 5);
  EXPECT_EQ(two->words[1].text, "two");
  EXPECT_FALSE(reader.Next());
}

TEST(ScriptReader, ByteOrderMarkBeforeTheFirstStepIsIgnored) {
  std::istringstream script("\xEF\xBB\xBFsay x\n");
  EXPECT_EQ(ScriptReader(script).Next()->words[0].text, "say");
}

TEST(ScriptWord, ReadsBackUnchanged) {
  for (const char* text :
       {"plain", "", "two words", "a\"b", "\"", "c:\\a b\\", "#1", "tab\there"}) {
    EXPECT_EQ(Texts("x " + Script_Word(text)), (Strings{"x", text}));
  }
}

// Returns one line, then fails like a broken disk.
class BrokenBuffer : public std::streambuf {
 protected:
  int_type underflow() override {
    if (given_) throw std::ios_base::failure("broken");
    given_ = true;
    setg(line_, line_, line_ + sizeof line_ - 1);
    return traits_type::to_int_type(line_[0]);
  }

 private:
  char line_[10] = "say done\n";
  bool given_ = false;
};

// Zeros without end, like a device; counts what was taken.
class EndlessBuffer : public std::streambuf {
 public:
  std::size_t taken = 0;

 protected:
  int_type underflow() override {
    taken += sizeof zeros_;
    if (taken > std::size_t{1} << 26U) return traits_type::eof();  // the test must end
    setg(zeros_, zeros_, zeros_ + sizeof zeros_);
    return traits_type::to_int_type(zeros_[0]);
  }

 private:
  char zeros_[4096] = {};
};

TEST(ScriptReader, ALineWithoutAnEndIsRefused) {
  EndlessBuffer buffer;
  std::istream script(&buffer);
  ScriptReader reader(script);
  EXPECT_THROW(reader.Next(), ScriptSyntaxError);
  EXPECT_EQ(reader.Line(), 1);
  EXPECT_LE(buffer.taken, (std::size_t{1} << 24U) + 2 * 4096);
}

TEST(ScriptReader, TheLongestLineIsReadWhole) {
  const std::string text(16777216 - 4, 'x');
  std::istringstream script("say " + text + "\nsay y");
  ScriptReader reader(script);
  EXPECT_EQ(reader.Next()->words[1].text, text);
  EXPECT_EQ(reader.Next()->words[1].text, "y");
  EXPECT_FALSE(reader.Next());
}

TEST(ScriptReader, LinesOfEveryLengthAreReadWhole) {
  for (const std::size_t length : {1U, 4090U, 4091U, 4092U, 8181U, 8186U, 8187U, 12345U}) {
    for (const char* end : {"\n", "", "\r\n"}) {
      const std::string text(length, 'x');
      std::istringstream script("say y\nsay " + text + end);
      ScriptReader reader(script);
      ASSERT_TRUE(reader.Next());
      const auto step = reader.Next();
      ASSERT_TRUE(step) << length;
      EXPECT_EQ(step->words[1].text, text) << length;
      EXPECT_EQ(step->line, 2);
      EXPECT_FALSE(reader.Next()) << length;
    }
  }
}

TEST(ScriptReader, ANulIsACharacterOfItsLine) {
  const std::string text("a\0b", 3);
  std::istringstream script("say " + text + "\nsay y\n");
  ScriptReader reader(script);
  EXPECT_EQ(reader.Next()->words[1].text, text);
  EXPECT_EQ(reader.Next()->words[1].text, "y");
}

TEST(ScriptReader, ReadErrorIsNotTheEndOfTheScript) {
  BrokenBuffer buffer;
  std::istream script(&buffer);
  ScriptReader reader(script);
  ASSERT_TRUE(reader.Next());
  EXPECT_THROW(reader.Next(), ScriptSyntaxError);
}

}  // namespace
}  // namespace sylvomex
