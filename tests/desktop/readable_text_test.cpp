// SPDX-License-Identifier: MIT
#include "desktop/readable_text.h"

#include <gtest/gtest.h>

#include <QFont>

#include "desktop/control_widgets.h"

namespace sylvomex {
namespace {

class ShortenedText : public testing::Test {
 protected:
  QString In_Room_Of(const QString& room, const QString& text) {
    return Shortened(text, letters_, letters_.horizontalAdvance(room));
  }
  QFontMetrics letters_{Control_Font()};
};

TEST_F(ShortenedText, ATextThatFitsStays) {
  EXPECT_EQ(In_Room_Of("X 12.3456", "X 12.3456"), "X 12.3456");
}

TEST_F(ShortenedText, ANumberLosesDecimalsAndIsRounded) {
  EXPECT_EQ(In_Room_Of("X 12.35", "X 12.3456"), "X 12.35");
  EXPECT_EQ(In_Room_Of("-.01235", "-.0123456789"), "-.01235");
  EXPECT_EQ(In_Room_Of("13", "12.9"), "13");
}

TEST_F(ShortenedText, ExponentsAndWholeNumbersAreKept) {
  EXPECT_EQ(In_Room_Of("1.24E-05", "1.2366667E-05"), "1.24E-05");
  EXPECT_EQ(In_Room_Of("123456", "1234567"), QString(QChar(0x2026)));
}

TEST_F(ShortenedText, WholeWordsGoWhereDecimalsDoNotSuffice) {
  const QString shown = QStringLiteral("saved to file") + QChar(0x2026);
  EXPECT_EQ(In_Room_Of(shown, "saved to file 1234567"), shown);
}

TEST_F(ShortenedText, TheFullestWordingThatFitsIsTaken) {
  const QStringList wordings{"Undo: Centre on 1.24 m (all)", "Undo: Centre on 1.24 m"};
  const auto in_room_of = [&](const QString& room) {
    return First_That_Fits(wordings, letters_, letters_.horizontalAdvance(room));
  };
  EXPECT_EQ(in_room_of(wordings[0]), wordings[0]);
  EXPECT_EQ(in_room_of(wordings[1]), wordings[1]);
}

TEST_F(ShortenedText, VersionsAndFileNamesAreNoNumbers) {
  const QString shown = QStringLiteral("a1.25") + QChar(0x2026);
  EXPECT_EQ(In_Room_Of(shown, "a1.25 b1.25 end"), shown);
}

TEST(ReadableText, OnALightGroundColoursStayOnADarkOneTheyStandOut) {
  const QColor light(240, 240, 240), dark(40, 40, 40);
  for (const QColor& colour : {QColor(0, 0, 0), QColor(255, 0, 0), QColor(0, 0, 255)}) {
    EXPECT_EQ(Readable_On(light, colour), colour);
    EXPECT_GT(Readable_On(dark, colour).lightness(), 150) << colour.name().toStdString();
  }
  EXPECT_EQ(Readable_On(dark, QColor(0, 0, 0)), QColor(255, 255, 255));
}

}  // namespace
}  // namespace sylvomex
