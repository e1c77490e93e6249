// SPDX-License-Identifier: MIT
#include "platform/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Format, OptionalIntegerDigitsAreOmittedFromAFraction) {
  EXPECT_EQ(Format(0.5, "#.00"), ".50");
  EXPECT_EQ(Format(-0.5, "#.00"), "-.50");
  EXPECT_EQ(Format(0, "#.00"), ".00");
  EXPECT_EQ(Format(0, "#"), "");
  EXPECT_EQ(Format(0.4, "#"), "");
}

TEST(Format, FixedDigitsAreAlwaysShown) {
  EXPECT_EQ(Format(-0.5, "0.00"), "-0.50");
  EXPECT_EQ(Format(42, "00000"), "00042");
  EXPECT_EQ(Format(7, "####0"), "7");
  EXPECT_EQ(Format(0, "####0"), "0");
  EXPECT_EQ(Format(33.25, "0000.0000"), "0033.2500");
  EXPECT_EQ(Format(5, "#0#"), "05");
}

TEST(Format, IntegerDigitsBeyondThePatternAreShown) {
  EXPECT_EQ(Format(2515000.126, "#.00"), "2515000.13");
  EXPECT_EQ(Format(1234, "000"), "1234");
  EXPECT_EQ(Format(123456, "#####"), "123456");
}

TEST(Format, OptionalDecimalsAreDroppedButThePointStays) {
  EXPECT_EQ(Format(3.25, "0.#######"), "3.25");
  EXPECT_EQ(Format(3, "0.#######"), "3.");
  EXPECT_EQ(Format(0, "#.##"), ".");
  EXPECT_EQ(Format(1.5, "0.0##"), "1.5");
  EXPECT_EQ(Format(1, "0.0##"), "1.0");
  EXPECT_EQ(Format(25.25, "#.# m"), "25.2 m");
}

TEST(Format, ExactTiesRoundToTheEvenDigit) {
  EXPECT_EQ(Format(0.125, "0.00"), "0.12");
  EXPECT_EQ(Format(0.375, "0.00"), "0.38");
  EXPECT_EQ(Format(2.5, "0"), "2");
  EXPECT_EQ(Format(3.5, "0"), "4");
}

TEST(Format, TheExactBinaryValueDecidesWhereTheTextLooksLikeATie) {
  // 2.675 is stored as 2.67499999999999982..., 1.005 as 1.00499999999999989..., 0.15 as
  // 0.1499999999999999944..., 0.35 as 0.34999999999999997..., 2.345 as 2.34500000000000019...
  EXPECT_EQ(Format(2.675, "0.00"), "2.67");
  EXPECT_EQ(Format(1.005, "0.00"), "1.00");
  EXPECT_EQ(Format(0.15, "0.0"), "0.1");
  EXPECT_EQ(Format(2.345, "#.00 m"), "2.35 m");
}

TEST(Format, RoundingCarriesIntoNewIntegerDigits) {
  EXPECT_EQ(Format(9.996, "#.00"), "10.00");
  EXPECT_EQ(Format(0.996, "#.00"), "1.00");
  EXPECT_EQ(Format(99.96, "00.0"), "100.0");
}

TEST(Format, LiteralsSurroundTheDigits) {
  EXPECT_EQ(Format(2.25, "#.00 m"), "2.25 m");
  EXPECT_EQ(Format(7, "000_"), "007_");
  EXPECT_EQ(Format(0.000012, "0.000000 um"), "0.000012 um");
  EXPECT_EQ(Format(12.5, "#.00 um RMSE"), "12.50 um RMSE");
  EXPECT_EQ(Format(3, "# images"), "3 images");
  EXPECT_EQ(Format(3.5, "r = 0.0."), "r = 3.5.");
  EXPECT_EQ(Format(4, "a.b 0"), "a.b 4");
}

TEST(Format, PercentSignMultipliesBy100) {
  EXPECT_EQ(Format(0.5, "# %"), "50 %");
  EXPECT_EQ(Format(1, "# %"), "100 %");
  EXPECT_EQ(Format(0.123, "#.0 %"), "12.3 %");
}

TEST(Format, MinusSignStandsBeforeEverything) {
  EXPECT_EQ(Format(-5, "h 0.0 m"), "-h 5.0 m");
  EXPECT_EQ(Format(-42, "00000"), "-00042");
}

TEST(Format, AValueThatRoundsToZeroHasNoMinusSign) {
  EXPECT_EQ(Format(-0.001, "0.00"), "0.00");
  EXPECT_EQ(Format(-0.001, "#.00"), ".00");
  EXPECT_EQ(Format(-0.0, "0"), "0");
  EXPECT_EQ(Format(-0.4, "#"), "");
  EXPECT_EQ(Format(-0.006, "0.00"), "-0.01");
}

TEST(Format, PatternWithoutDigitsGivesItsLiterals) {
  EXPECT_EQ(Format(5, " m"), " m");
  EXPECT_EQ(Format(-5, "a.b"), "a.b");
  EXPECT_EQ(Format(5, ""), "");
}

TEST(Format, NonFiniteValuesReplaceTheDigits) {
  EXPECT_EQ(Format(kNaN, "0.00 m"), "NaN m");
  EXPECT_EQ(Format(kInfinity, "#.00"), "Inf");
  EXPECT_EQ(Format(-kInfinity, "0.0 %"), "-Inf %");
}

TEST(Format, TheLargestDoubleIsWrittenInFull) {
  const std::string text = Format(-std::numeric_limits<double>::max(), "0.00");
  EXPECT_EQ(text.size(), 1u + 309u + 3u);
  EXPECT_EQ(text.substr(0, 18), "-17976931348623157");
}

TEST(Format, LongPatternsAreAccepted) {
  EXPECT_EQ(Format(1, std::string(2000, '0')), std::string(1999, '0') + "1");
  EXPECT_EQ(Format(0.5, "0." + std::string(2000, '0')), "0.5" + std::string(1999, '0'));
}

TEST(PlainText, WholeNumbersHaveNoPoint) {
  EXPECT_EQ(Plain_Text(2515000.0), "2515000");
  EXPECT_EQ(Plain_Text(0.0), "0");
  EXPECT_EQ(Plain_Text(-0.0), "0");
  EXPECT_EQ(Plain_Text(-12), "-12");
  EXPECT_EQ(Plain_Text(std::int32_t{-2147483647} - 1), "-2147483648");
}

TEST(PlainText, FractionsAreAsShortAsTheyCanBe) {
  EXPECT_EQ(Plain_Text(0.03), "0.03");
  EXPECT_EQ(Plain_Text(-1.5), "-1.5");
  EXPECT_EQ(Plain_Text(0.1 + 0.2), "0.3");
  EXPECT_EQ(Plain_Text(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(Plain_Text(0.00001), "0.00001");
}

TEST(PlainText, ExponentsAppearWherePlainDigitsNeedMoreThan15Places) {
  EXPECT_EQ(Plain_Text(123456789012345.0), "123456789012345");
  EXPECT_EQ(Plain_Text(1e15), "1E+15");
  EXPECT_EQ(Plain_Text(1.5e20), "1.5E+20");
  EXPECT_EQ(Plain_Text(1e-15), "0.000000000000001");
  EXPECT_EQ(Plain_Text(1e-16), "1E-16");
  EXPECT_EQ(Plain_Text(1.5e-16), "1.5E-16");
  EXPECT_EQ(Plain_Text(1.0 / 30), "3.33333333333333E-02");
  EXPECT_EQ(Plain_Text(-1e300), "-1E+300");
}

TEST(PlainText, RoundingTo15DigitsMayCarry) {
  EXPECT_EQ(Plain_Text(0.9999999999999999), "1");
  EXPECT_EQ(Plain_Text(999999999999999.9), "1E+15");
}

TEST(PlainText, FloatsHaveSevenDigits) {
  EXPECT_EQ(Plain_Text(0.1f), "0.1");
  EXPECT_EQ(Plain_Text(1.0f / 3), "0.3333333");
  EXPECT_EQ(Plain_Text(1234567.0f), "1234567");
  EXPECT_EQ(Plain_Text(12345678.0f), "1.234568E+07");
  EXPECT_EQ(Plain_Text(std::numeric_limits<float>::max()), "3.402823E+38");
}

TEST(PlainText, NonFiniteValuesHaveNames) {
  EXPECT_EQ(Plain_Text(kNaN), "NaN");
  EXPECT_EQ(Plain_Text(kInfinity), "Inf");
  EXPECT_EQ(Plain_Text(-kInfinity), "-Inf");
}

TEST(FullText, GivesTheSameDoubleBack) {
  EXPECT_EQ(Full_Text(3), "3");
  EXPECT_EQ(Full_Text(0.1), "0.10000000000000001");
  for (const double value : {1.0 / 3, 2515000.123456789, -1e-300, 5e-324, 1.7976931348623157e308}) {
    EXPECT_EQ(Parse_Double(Full_Text(value)), value);
  }
}

TEST(ParseDouble, AcceptsTheUsualSpellings) {
  EXPECT_EQ(Parse_Double("12"), 12);
  EXPECT_EQ(Parse_Double(" \t-1.5 "), -1.5);
  EXPECT_EQ(Parse_Double("+5"), 5);
  EXPECT_EQ(Parse_Double(".5"), 0.5);
  EXPECT_EQ(Parse_Double("-.5"), -0.5);
  EXPECT_EQ(Parse_Double("5."), 5);
  EXPECT_EQ(Parse_Double("1e3"), 1000);
  EXPECT_EQ(Parse_Double("1E+3"), 1000);
  EXPECT_EQ(Parse_Double("2.5E-1"), 0.25);
  EXPECT_EQ(Parse_Double("007"), 7);
}

TEST(ParseDouble, RejectsEverythingElseAndQuotesIt) {
  for (const std::string text :
       {"abc", "1,5", "0x10", "inf", "nan", "-inf", "1 2", "1e", "1e+", ".", "-", "+-1", "--1",
        "1.2.3", "1e5.5", "e5", "12a", "1d3", "1\n"}) {
    try {
      Parse_Double(text);
      FAIL() << text;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Kind(), Failure::TypeMismatch);
      const std::string shown = text == "1\n" ? "1?" : text;
      EXPECT_EQ(error.what(), "Type mismatch: \"" + shown + "\" is not a number");
    }
  }
}

TEST(ParseDouble, RejectsTheEmptyText) {
  for (const std::string text : {"", "  "}) {
    try {
      Parse_Double(text);
      FAIL();
    } catch (const RunTimeError& error) {
      EXPECT_STREQ(error.what(), "Type mismatch: an empty text is not a number");
    }
  }
}

TEST(ParseDouble, BeyondTheRangeOfADoubleIsAnOverflow) {
  for (const std::string text : {"1e309", "-1e400", "1e99999999999999999999", "0.001e312"}) {
    try {
      Parse_Double(text);
      FAIL() << text;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Kind(), Failure::Overflow);
      EXPECT_EQ(error.what(), "Overflow: \"" + text + "\" is too large");
    }
  }
  EXPECT_THROW(Parse_Double("1" + std::string(400, '0')), RunTimeError);
}

TEST(ParseDouble, UnderflowIsZero) {
  EXPECT_EQ(Parse_Double("1e-400"), 0);
  EXPECT_EQ(Parse_Double("-12345e-99999999999"), 0);
  EXPECT_EQ(Parse_Double("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(Parse_Double("0e999999"), 0);
}

TEST(ParseDouble, DoesNotDependOnTheProcessLocale) {
  // If no such locale is installed, the conversion runs in the current one.
  const std::string old_locale = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"fi_FI.UTF-8", "de_DE.UTF-8", "C"}) {
    std::setlocale(LC_ALL, name);
    EXPECT_EQ(Parse_Double("1.5"), 1.5);
    EXPECT_EQ(Format(1.5, "#.0"), "1.5");
    EXPECT_EQ(Plain_Text(1.5), "1.5");
    EXPECT_EQ(Full_Text(1.5), "1.5");
  }
  std::setlocale(LC_ALL, old_locale.c_str());
}

TEST(ParseIntegers, RoundHalfToEven) {
  EXPECT_EQ(Parse_Int16("2.5"), 2);
  EXPECT_EQ(Parse_Int32("3.5"), 4);
  EXPECT_EQ(Parse_Byte(" 255 "), 255);
}

TEST(ParseIntegers, OutOfRangeIsAnOverflow) {
  try {
    Parse_Int16("40000");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_STREQ(error.what(), "Overflow: 40000 is not in -32768 to 32767");
  }
  EXPECT_THROW(Parse_Int32("3e9"), RunTimeError);
  EXPECT_THROW(Parse_Byte("-1"), RunTimeError);
}

TEST(QuotedForMessage, LongTextsAreTruncatedAndControlCharactersReplaced) {
  EXPECT_EQ(Quoted_For_Message("a\tb"), "\"a?b\"");
  EXPECT_EQ(Quoted_For_Message(std::string(40, 'x')), "\"" + std::string(40, 'x') + "\"");
  EXPECT_EQ(Quoted_For_Message(std::string(39, 'x') + "\u00e4z"),
            "\"" + std::string(39, 'x') + "\u00e4...\"");
  EXPECT_EQ(Quoted_For_Message(std::string(41, 'x')), "\"" + std::string(40, 'x') + "...\"");
}

}  // namespace
}  // namespace sylvomex
