// SPDX-License-Identifier: MIT
#include "platform/list_reader.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/run_time_error.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

ListReader Reader(std::string content) { return {std::move(content), "c:\\data\\a.hdr"}; }

template <class Action>
void Expect_Failure(Failure kind, const std::string& message, Action action) {
  try {
    action();
    FAIL() << "no failure, expected: " << message;
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), kind);
    EXPECT_EQ(error.what(), message);
  }
}

/// The texts of the file joined by '|'.
std::string Texts(std::string content, int count) {
  ListReader list = Reader(std::move(content));
  std::string joined;
  for (int i = 0; i < count; ++i) {
    if (i > 0) joined += '|';
    joined += list.Read_Text();
  }
  return joined;
}

TEST(ListReader, CommasBlanksAndLineEndsSeparateNumbers) {
  ListReader list = Reader("1,2 3\t4\n5");
  for (const double expected : {1, 2, 3, 4, 5}) EXPECT_EQ(list.Read_Double(), expected);
  EXPECT_TRUE(list.At_End());
}

TEST(ListReader, OneCommaWithBlanksAroundIsOneSeparator) {
  ListReader list = Reader("  1 , 2,\t3  ,  4  \n  5 ");
  for (const double expected : {1, 2, 3, 4, 5}) EXPECT_EQ(list.Read_Double(), expected);
  EXPECT_TRUE(list.At_End());
}

TEST(ListReader, AllLineEndsCountAsOne) {
  ListReader list = Reader("1\r\n2\n3\r4\r\r5");
  EXPECT_EQ(list.Read_Int32(), 1);
  EXPECT_EQ(list.Read_Int32(), 2);
  EXPECT_EQ(list.Line(), 2);
  EXPECT_EQ(list.Read_Int32(), 3);
  EXPECT_EQ(list.Read_Int32(), 4);
  EXPECT_EQ(list.Line(), 4);
  EXPECT_EQ(list.Read_Int32(), 5);
  EXPECT_EQ(list.Line(), 6);
}

TEST(ListReader, EmptyLinesBeforeANumberAreSkipped) {
  ListReader list = Reader("\n\n1\n \n\t\n2,\n3");
  EXPECT_EQ(list.Read_Double(), 1);
  EXPECT_EQ(list.Read_Double(), 2);
  EXPECT_EQ(list.Read_Double(), 3);
  EXPECT_EQ(list.Line(), 7);
  EXPECT_EQ(list.Item(), 3);
}

TEST(ListReader, NumbersMayStandInQuotes) {
  ListReader list = Reader("\"12\",\" 1.5 \" 3");
  EXPECT_EQ(list.Read_Int32(), 12);
  EXPECT_EQ(list.Read_Double(), 1.5);
  EXPECT_EQ(list.Read_Double(), 3);
}

TEST(ListReader, IntegersWrittenAsRealsRoundHalfToEven) {
  ListReader list = Reader("2.5 3.5 254.5 1e3");
  EXPECT_EQ(list.Read_Int32(), 2);
  EXPECT_EQ(list.Read_Int16(), 4);
  EXPECT_EQ(list.Read_Byte(), 254);
  EXPECT_EQ(list.Read_Int16(), 1000);
}

TEST(ListReader, FloatsRoundToTheirWidth) {
  ListReader list = Reader("0.1 -3.4e38");
  EXPECT_EQ(list.Read_Float(), 0.1f);
  EXPECT_EQ(list.Read_Float(), -3.4e38f);
}

TEST(ListReader, UnquotedTextsEndAtABlank) {
  EXPECT_EQ(Texts("c:\\data\\a.raw next,last", 3), "c:\\data\\a.raw|next|last");
}

TEST(ListReader, QuotedTextsKeepCommasAndBlanks) {
  EXPECT_EQ(Texts("\"c:\\my data\\a,b.raw\", \" x \"\"y\"\"\" z", 3),
            "c:\\my data\\a,b.raw| x \"y\"|z");
  EXPECT_EQ(Texts("\"\",\"\"\"\"", 2), "|\"");
}

TEST(ListReader, AMissingClosingQuoteIsImpliedAtTheLinesEnd) {
  EXPECT_EQ(Texts("\"open, text\nnext", 2), "open, text|next");
  EXPECT_EQ(Texts("\"open", 1), "open");
  EXPECT_EQ(Texts("\"", 1), "");
}

TEST(ListReader, QuotesInsideATextAreOrdinary) { EXPECT_EQ(Texts("a\"b,c", 2), "a\"b|c"); }

TEST(ListReader, AnEmptyItemGivesTheEmptyText) {
  EXPECT_EQ(Texts("a,,b", 3), "a||b");
  EXPECT_EQ(Texts(",a", 2), "|a");
  EXPECT_EQ(Texts("a , , b", 3), "a||b");
}

TEST(ListReader, AnEmptyLineGivesTheEmptyText) {
  EXPECT_EQ(Texts("a\n\nb", 3), "a||b");
  EXPECT_EQ(Texts("\nb", 2), "|b");
  EXPECT_EQ(Texts("a\r\n\r\n\r\nb", 4), "a|||b");
  EXPECT_EQ(Texts("a,\nb", 3), "a||b");
}

TEST(ListReader, ACommaThatStartsALineFollowsAnEmptyText) {
  EXPECT_EQ(Texts(",a,\"\",b\n ,c", 6), "|a||b||c");
}

TEST(ListReader, SkippingEmptyLinesStopsAtTheNextItemEvenAnEmptyOne) {
  ListReader list("\n \n,a,\n\n,b", "list.txt");
  list.Skip_Empty_Lines();
  EXPECT_EQ(list.Read_Text(), "");
  EXPECT_EQ(list.Read_Text(), "a");
  list.Skip_Empty_Lines();
  EXPECT_EQ(list.Line(), 5);
  EXPECT_EQ(list.Read_Text(), "");
  EXPECT_EQ(list.Read_Text(), "b");
  list.Skip_Empty_Lines();
  EXPECT_TRUE(list.At_End());
}

TEST(ListReader, ANumberMayFollowAnEmptyText) {
  ListReader list = Reader("0.5\n\n4\n");
  EXPECT_EQ(list.Read_Double(), 0.5);
  EXPECT_EQ(list.Read_Text(), "");
  EXPECT_EQ(list.Read_Int32(), 4);
}

TEST(ListReader, TextToTheCommaKeepsBlanksInside) {
  ListReader list = Reader(" a b  c , \"d, e\" ,f g\nh i");
  EXPECT_EQ(list.Read_Text_To_Comma(), "a b  c");
  EXPECT_EQ(list.Read_Text_To_Comma(), "d, e");
  EXPECT_EQ(list.Read_Text_To_Comma(), "f g");
  EXPECT_EQ(list.Read_Text_To_Comma(), "h i");
}

TEST(ListReader, ReadLineGivesTheRestOfTheCurrentLine) {
  ListReader list = Reader("1,two three\r\nfour, five\n\nsix");
  EXPECT_EQ(list.Read_Int32(), 1);
  EXPECT_EQ(list.Read_Line(), "two three");
  EXPECT_EQ(list.Read_Line(), "four, five");
  EXPECT_EQ(list.Read_Line(), "");
  EXPECT_EQ(list.Read_Line(), "six");
  Expect_Failure(Failure::InputPastEnd, "Input past end of file: c:\\data\\a.hdr, line 4, item 6",
                 [&] { list.Read_Line(); });
}

TEST(ListReader, AfterItsLastItemALineIsStillTheCurrentOne) {
  ListReader list = Reader("1 2\n3 4 extra\n5");
  EXPECT_EQ(list.Read_Int32(), 1);
  EXPECT_EQ(list.Read_Int32(), 2);
  EXPECT_EQ(list.Line(), 1);
  list.Skip_Line();
  EXPECT_EQ(list.Read_Int32(), 3);
  EXPECT_EQ(list.Read_Int32(), 4);
  list.Skip_Line();
  EXPECT_EQ(list.Read_Int32(), 5);
  EXPECT_EQ(list.Read_Line(), "");
}

TEST(ListReader, SkippingAtTheEndDoesNothing) {
  ListReader list = Reader("1");
  list.Skip_Line();
  list.Skip_Line();
  EXPECT_TRUE(list.At_End());
  EXPECT_THROW(list.Read_Line(), RunTimeError);
}

TEST(ListReader, AtEndLooksPastBlanksAndLineEnds) {
  EXPECT_TRUE(Reader("").At_End());
  EXPECT_TRUE(Reader(" \t\r\n\n ").At_End());
  EXPECT_FALSE(Reader("\n,").At_End());
}

TEST(ListReader, AByteOrderMarkAtTheStartIsSkipped) {
  ListReader list = Reader(
      "\xEF\xBB\xBF"
      "12");
  EXPECT_EQ(list.Read_Int32(), 12);
  EXPECT_TRUE(Reader("\xEF\xBB\xBF").At_End());
}

TEST(ListReader, ATextInPlaceOfANumberIsNamedWithItsPosition) {
  ListReader list = Reader("1,2\n3,4\n5 6 abc");
  for (int i = 0; i < 6; ++i) list.Read_Double();
  Expect_Failure(Failure::TypeMismatch,
                 "Type mismatch: c:\\data\\a.hdr, line 3, item 7: \"abc\" is not a number",
                 [&] { list.Read_Double(); });
}

TEST(ListReader, AnEmptyItemIsNotANumber) {
  ListReader list = Reader("1,,2");
  list.Read_Double();
  Expect_Failure(Failure::TypeMismatch,
                 "Type mismatch: c:\\data\\a.hdr, line 1, item 2: an empty text is not a number",
                 [&] { list.Read_Double(); });
  EXPECT_EQ(list.Read_Double(), 2);
}

TEST(ListReader, AValueOutOfRangeIsNamedWithItsPosition) {
  ListReader list = Reader("1\n99999 -1 1e39 1e999");
  list.Read_Double();
  Expect_Failure(Failure::Overflow,
                 "Overflow: c:\\data\\a.hdr, line 2, item 2: 99999 is not in -32768 to 32767",
                 [&] { list.Read_Int16(); });
  Expect_Failure(Failure::Overflow,
                 "Overflow: c:\\data\\a.hdr, line 2, item 3: -1 is not in 0 to 255",
                 [&] { list.Read_Byte(); });
  Expect_Failure(Failure::Overflow,
                 "Overflow: c:\\data\\a.hdr, line 2, item 4: "
                 "1E+39 is not in -3.402823E+38 to 3.402823E+38",
                 [&] { list.Read_Float(); });
  Expect_Failure(Failure::Overflow,
                 "Overflow: c:\\data\\a.hdr, line 2, item 5: \"1e999\" is too large",
                 [&] { list.Read_Double(); });
}

TEST(ListReader, AMissingItemIsNamedWithItsPosition) {
  ListReader list = Reader("1\n2");
  list.Read_Double();
  list.Read_Double();
  Expect_Failure(Failure::InputPastEnd, "Input past end of file: c:\\data\\a.hdr, line 2, item 3",
                 [&] { list.Read_Double(); });
  Expect_Failure(Failure::InputPastEnd, "Input past end of file: c:\\data\\a.hdr, line 2, item 4",
                 [&] { list.Read_Text(); });
}

TEST(ListReader, GarbageIsShownTruncatedAndWithoutControlCharacters) {
  ListReader list = Reader(std::string("\0\x01\x02", 3) + std::string(50, 'z'));
  Expect_Failure(Failure::TypeMismatch,
                 "Type mismatch: c:\\data\\a.hdr, line 1, item 1: \"???" + std::string(37, 'z') +
                     "...\" is not a number",
                 [&] { list.Read_Double(); });
}

TEST(ListReader, WhereNamesTheItemReadLast) {
  ListReader list = Reader("1\n2\n\n3");
  list.Read_Double();
  EXPECT_EQ(list.Where(), "c:\\data\\a.hdr, line 1, item 1");
  list.Read_Double();
  list.Read_Double();
  EXPECT_EQ(list.Where(), "c:\\data\\a.hdr, line 4, item 3");
}

TEST(ListReader, ReadsFilesByTheOperatorsName) {
  const TemporaryFolder folder;
  const FilePath place = folder.Write("c/data/a.hdr", "7 x");
  const FilePath file{"C:\\Data\\A.hdr", place.native};
  ListReader list(file);
  EXPECT_EQ(list.Read_Int32(), 7);
  try {
    list.Read_Int32();
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_STREQ(error.what(),
                 "Type mismatch: C:\\Data\\A.hdr, line 1, item 2: \"x\" is not a number");
    EXPECT_EQ(error.Native_Path(), place.native);
  }
}

TEST(ListReader, AMissingFileIsAFileNotFound) {
  Expect_Failure(Failure::FileNotFound, "File not found: c:\\none.hdr", [] {
    ListReader(FilePath{"c:\\none.hdr", "/none/none.hdr"});
  });
}

TEST(ListReader, ALineOfAFileIsNamedByItsNumberAndCountsItsOwnItems) {
  const FilePath file{"c:\\data\\a.csv", "/native/a.csv"};
  ListReader line("7,x", file, 12);
  EXPECT_EQ(line.Read_Int32(), 7);
  try {
    line.Read_Double();
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_STREQ(error.what(),
                 "Type mismatch: c:\\data\\a.csv, line 12, item 2: \"x\" is not a number");
    EXPECT_EQ(error.Native_Path(), file.native);
  }
  Expect_Failure(Failure::InputPastEnd, "Input past end of file: c:\\data\\a.csv, line 12, item 3",
                 [&] { line.Read_Double(); });
}

TEST(ListReader, QuotedTextsReadBackUnchanged) {
  // Any text without a line end, quoted with its quotes doubled, is read back unchanged.
  std::mt19937 random(5);
  const std::string alphabet = "ab\", \t\\.";
  for (int round = 0; round < 500; ++round) {
    std::string text;
    std::string quoted = "\"";
    for (unsigned length = random() % 12; length > 0; --length) {
      const char c = alphabet[random() % alphabet.size()];
      text += c;
      quoted += c == '"' ? "\"\"" : std::string(1, c);
    }
    ASSERT_EQ(Texts("1 " + quoted + "\" , 2", 3), "1|" + text + "|2");
  }
}

}  // namespace
}  // namespace sylvomex
