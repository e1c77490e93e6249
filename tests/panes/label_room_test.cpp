// SPDX-License-Identifier: MIT
#include "panes/label_room.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace sylvomex {
namespace {

TEST(LabelRoom, WhatIsTakenIsNotTakenAgain) {
  LabelRoom room(90, 90);
  EXPECT_TRUE(room.Take({9, 9, 39, 21}));
  EXPECT_FALSE(room.Take({30, 12, 60, 24}));
  EXPECT_TRUE(room.Take({9, 30, 39, 42}));
  EXPECT_TRUE(room.Take({60, 9, 90, 21}));
}

TEST(LabelRoom, LabelsOverTheEdgeAndOutsideAreNoHarm) {
  LabelRoom room(90, 90);
  EXPECT_TRUE(room.Take({-30, -6, 12, 12}));
  EXPECT_FALSE(room.Take({0, 0, 30, 12}));
  EXPECT_TRUE(room.Take({200, 200, 230, 212}));
  EXPECT_TRUE(room.Take({80, 80, 120, 120}));
}

class ThinnedMarks : public testing::Test {
 protected:
  static constexpr int kSide = 200;

  void Print(const char* text, double px, double py) {
    picture_.CurrentX = px;
    picture_.CurrentY = py;
    Print_Text(picture_, text);
  }

  /// Whether anything is painted in the rectangle.
  bool Is_Inked(const std::vector<std::uint32_t>& pixels, const PixelRect& rect) {
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) {
        if (pixels[static_cast<std::size_t>(y) * kSide + static_cast<std::size_t>(x)] != 0) {
          return true;
        }
      }
    }
    return false;
  }

  std::vector<std::uint32_t> Painted(bool thinned) {
    std::vector<std::uint32_t> pixels(std::size_t{kSide} * kSide);
    const PixelView view{pixels.data(), kSide, kSide, kSide};
    LabelRoom room(kSide, kSide);
    if (thinned) {
      Paint_Marks_Thinned(view, picture_, 0, room);
    } else {
      Paint_Marks(view, picture_, 0);
    }
    return pixels;
  }

  Picture picture_;
};

TEST_F(ThinnedMarks, OfLabelsThatRunIntoEachOtherTheFirstIsLeft) {
  picture_.ForeColor = {255, 255, 255};
  Print("123.45", 20, 20);
  const std::vector<std::uint32_t> alone = Painted(true);
  Print("678.90", 22, 24);
  EXPECT_EQ(Painted(true), alone);
  EXPECT_NE(Painted(false), alone);
}

TEST_F(ThinnedMarks, LabelsApartFromEachOtherAndAllOtherMarksStay) {
  picture_.ForeColor = {255, 255, 255};
  Print("123.45", 20, 20);
  Print("678.90", 20, 120);
  Draw_Line(picture_, 10, 25, 100, 25, {255, 0, 0});
  EXPECT_EQ(Painted(true), Painted(false));
  EXPECT_TRUE(Is_Inked(Painted(true), {20, 120, 60, 140}));
}

TEST_F(ThinnedMarks, WhatIsPaintedLaterKnowsTheRoomThatIsTaken) {
  picture_.ForeColor = {255, 255, 255};
  Print("123.45", 20, 20);
  std::vector<std::uint32_t> pixels(std::size_t{kSide} * kSide);
  const PixelView view{pixels.data(), kSide, kSide, kSide};
  LabelRoom room(kSide, kSide);
  Paint_Marks_Thinned(view, picture_, 0, room);
  const std::vector<std::uint32_t> before = pixels;
  Print("678.90", 22, 24);
  EXPECT_TRUE(Paint_Marks_Thinned(view, picture_, 1, room).Is_Empty());
  EXPECT_EQ(pixels, before);
}

}  // namespace
}  // namespace sylvomex
