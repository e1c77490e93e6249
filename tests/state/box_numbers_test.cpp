// SPDX-License-Identifier: MIT
#include "state/box_numbers.h"

#include <gtest/gtest.h>

#include "support/failure_of.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

TEST(BoxNumbers, ABoxGivesItsNumberOrIsNamedInTheError) {
  TextBox box;
  box.Text = " 1.5 ";
  EXPECT_EQ(Number_In(box, "Text5"), 1.5);
  box.Text = "wide";
  EXPECT_EQ(Failure_Of([&] { Number_In(box, "Text5"); }),
            "Type mismatch: Text5: \"wide\" is not a number");
}

TEST(BoxNumbers, MeasurementBoxErrorsNameBoxAndImage) {
  SyntheticBlock b;
  b.w.Form1.Text1(16).Text = "0.001";
  b.w.Form1.Text1(17).Text = "-0.002";
  EXPECT_EQ(Film_In_Boxes(b.w, 8).x, 0.001);
  EXPECT_EQ(Film_In_Boxes(b.w, 8).y, -0.002);
  b.w.Form1.Text1(17).Text = "";
  EXPECT_EQ(Failure_Of([&] { Film_In_Boxes(b.w, 8); }),
            "Type mismatch: Text1(17) of image 8: an empty text is not a number");
}

}  // namespace
}  // namespace sylvomex
