// SPDX-License-Identifier: MIT
#include "state/picture.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

Picture With_Overlay() {
  Picture picture;
  for (int k = 0; k < 100'000; ++k) {
    Plot_Point(picture, k, k, {255, 0, 0});
    Print_Text(picture, "a text that is longer than a short one");
  }
  Show_Floating(picture, std::vector<Mark>(1000));
  return picture;
}

void Expect_No_Memory(const Picture& picture) {
  EXPECT_EQ(picture.marks.capacity(), 0U);
  EXPECT_EQ(picture.texts.capacity(), 0U);
  EXPECT_EQ(picture.floating.capacity(), 0U);
}

TEST(Picture, ErasingGivesTheMemoryOfTheMarksBack) {
  Picture picture = With_Overlay();
  Erase_Marks(picture);
  Expect_No_Memory(picture);
}

TEST(Picture, LoadingGivesTheMemoryOfTheMarksBack) {
  Picture picture = With_Overlay();
  Load_Picture(picture, nullptr);
  Expect_No_Memory(picture);
}

}  // namespace
}  // namespace sylvomex
