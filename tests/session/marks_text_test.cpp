// SPDX-License-Identifier: MIT
#include "session/marks_text.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

TEST(MarkText, PointHasPositionColourAndWidth) {
  Picture picture;
  picture.DrawWidth = 3;
  Plot_Point(picture, 10.5, -2, {255, 128, 0});
  EXPECT_EQ(Mark_Text(picture, picture.marks.at(0)), "point 10.5 -2 255 128 0 3");
}

TEST(MarkText, LineHasBothEnds) {
  Picture picture;
  Draw_Line(picture, 1, 2, 3, 4.25, {5, 255, 211});
  EXPECT_EQ(Mark_Text(picture, picture.marks.at(0)), "line 1 2 3 4.25 5 255 211 1");
}

TEST(MarkText, TextHasItsFont) {
  Picture picture;
  picture.font = {"Arial", 20, true};
  picture.ForeColor = {255, 255, 255};
  picture.CurrentX = picture.CurrentY = 5;
  Print_Text(picture, "17    1:\"09000\"");
  EXPECT_EQ(Mark_Text(picture, picture.marks.at(0)),
            "text 5 5 \"17    1:\"\"09000\"\"\" \"Arial\" 20 bold 255 255 255");
}

TEST(MarkText, PlainFontAndPositionsWithSeventeenDigits) {
  Picture picture;
  picture.font = {"MS Sans Serif", 8.25, false};
  picture.CurrentX = 0.1;
  Print_Text(picture, "x");
  EXPECT_EQ(Mark_Text(picture, picture.marks.at(0)),
            "text 0.10000000000000001 0 \"x\" \"MS Sans Serif\" 8.25 plain 0 0 0");
}

}  // namespace
}  // namespace sylvomex
