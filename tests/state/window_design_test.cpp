// SPDX-License-Identifier: MIT
#include "state/window_design.h"

#include <gtest/gtest.h>

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Hidden;
using design::Row;

struct SampleForm : Form {
  Label Label1;
  TextBox Text1;
  Table<TextBox, 0, 2> Text2;
  Table<CheckBox, 1, 2> Check1;
  Picture Picture1;
};

constexpr ControlItem kCheck1[] = {{"one", {1, 2, 3, 4}}, {"two", {50, 60, 70, 80}}};

constexpr ControlRow kControls[] = {
    Row<&SampleForm::Label1>("Label1", "Zoom factor", {10, 20, 30, 40}),
    Row<&SampleForm::Text1>("Text1", "0.5", {0, 0, 60, 15}),
    Row<&SampleForm::Text2>("Text2", "7", {100, 10, 20, 30}, {5, 26}),
    Row<&SampleForm::Check1>("Check1", kCheck1),
    Hidden(Row<&SampleForm::Picture1>("Picture1", "", {0, 0, 640, 480})),
};

constexpr WindowDesign kDesign{"A sample", 800, 600, kControls};

struct WindowDesignTest : testing::Test {
  WindowDesignTest() { Apply_Design(form, kDesign); }

  AnyControl Find(const char* name, int index = kNoIndex) {
    return Find_Control(form, kDesign, name, index);
  }

  SampleForm form;
};

TEST_F(WindowDesignTest, GivesTheWindowItsTitleAndClientSize) {
  EXPECT_EQ(form.Title, "A sample");
  EXPECT_EQ(form.ClientWidth, 800);
  EXPECT_EQ(form.ClientHeight, 600);
  EXPECT_FALSE(form.Visible);
}

TEST_F(WindowDesignTest, TextIsACaptionOrTheStartOfABox) {
  EXPECT_EQ(form.Label1.Caption, "Zoom factor");
  EXPECT_EQ(form.Text1.Text, "0.5");
  EXPECT_EQ(form.Text2(2).Text, "7");
}

TEST_F(WindowDesignTest, ControlsTakeTheirPlaces) {
  EXPECT_EQ(form.Label1.Left, 10);
  EXPECT_EQ(form.Label1.Top, 20);
  EXPECT_EQ(form.Label1.Width, 30);
  EXPECT_EQ(form.Label1.Height, 40);
}

TEST_F(WindowDesignTest, ControlsOfAnArrayAreSpacedFromTheFirst) {
  EXPECT_EQ(form.Text2(0).Left, 100);
  EXPECT_EQ(form.Text2(2).Left, 110);
  EXPECT_EQ(form.Text2(2).Top, 62);
  EXPECT_EQ(form.Text2(2).Width, 20);
}

TEST_F(WindowDesignTest, ItemsOfAnArrayCountFromItsFirstIndex) {
  EXPECT_EQ(form.Check1(1).Caption, "one");
  EXPECT_EQ(form.Check1(2).Caption, "two");
  EXPECT_EQ(form.Check1(2).Top, 60);
}

TEST_F(WindowDesignTest, AHiddenControlStartsInvisibleAndDisabled) {
  EXPECT_FALSE(form.Picture1.Visible);
  EXPECT_FALSE(form.Picture1.Enabled);
  EXPECT_TRUE(form.Text1.Visible);
  EXPECT_TRUE(form.Text1.Enabled);
}

TEST_F(WindowDesignTest, ControlsAreFoundByNameAndIndex) {
  EXPECT_EQ(std::get<Picture*>(Find("Picture1")), &form.Picture1);
  EXPECT_EQ(std::get<TextBox*>(Find("Text2", 1)), &form.Text2(1));
  EXPECT_EQ(std::get<CheckBox*>(Find("Check1", 2)), &form.Check1(2));
}

TEST_F(WindowDesignTest, AWrongNameOrIndexFindsNothing) {
  for (const AnyControl& found : {Find("Text3"), Find("Text2"), Find("Text2", 3), Find("Check1", 0),
                                  Find("Text1", 0), Find("Text2", -2)}) {
    EXPECT_TRUE(std::holds_alternative<std::monostate>(found));
  }
}

TEST_F(WindowDesignTest, EveryControlIsVisitedOnceInTheOrderOfTheRows) {
  std::string order;
  Visit_Controls(form, kControls, [&](const ControlRow& row, int index, AnyControl) {
    order += row.name + (index == kNoIndex ? std::string() : std::to_string(index)) + " ";
  });
  EXPECT_EQ(order, "Label1 Text1 Text20 Text21 Text22 Check11 Check12 Picture1 ");
}

}  // namespace
}  // namespace sylvomex
