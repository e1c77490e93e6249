// SPDX-License-Identifier: MIT
#include "desktop/control_widgets.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionButton>

#include "desktop/qt_text.h"

namespace sylvomex {
namespace {

class LabelOnScreen : public testing::Test {
 protected:
  void Show(const std::string& caption, int width, int height = 16) {
    label_.resize(width, height);
    record_.Caption = caption;
    Show_Control(label_, record_);
  }

  Label record_;
  TextLabel label_;
};

TEST_F(LabelOnScreen, ShortTextIsShownWhole) {
  Show("East, X", 80);
  EXPECT_EQ(label_.Painted_Text(), "East, X");
  EXPECT_TRUE(label_.toolTip().isEmpty());
}

TEST_F(LabelOnScreen, TextALittleTooLongIsSqueezed) {
  const QString text = "4321.5 1234.5 123 234 4000 1000";
  Show(text.toStdString(), QFontMetrics(Control_Font()).horizontalAdvance(text) * 9 / 10);
  EXPECT_EQ(label_.Painted_Text(), text);
  EXPECT_TRUE(label_.toolTip().isEmpty());
}

TEST_F(LabelOnScreen, TextFarTooLongIsElidedAndShownInTheToolTip) {
  Show("a text that is far longer than its label", 60);
  EXPECT_TRUE(label_.Painted_Text().endsWith(QChar(0x2026)));
  EXPECT_EQ(label_.toolTip(), "a text that is far longer than its label");
}

TEST_F(LabelOnScreen, TakesColourAndFontOfItsRecord) {
  record_.ForeColor = {255, 0, 0};
  record_.FontSize = 12;
  record_.FontBold = true;
  Show("RMSE", 80);
  EXPECT_EQ(label_.palette().color(QPalette::WindowText), QColor(255, 0, 0));
  EXPECT_EQ(label_.font().pixelSize(), 16);  // 12 points at 96 pixels an inch
  EXPECT_TRUE(label_.font().bold());
}

TEST(TickBox, StaysWithinItsRoom) {
  QCheckBox box("Use: 123456789");
  EXPECT_EQ(Fit_Check_Box(box, 500), box.sizeHint().width());
  EXPECT_TRUE(box.toolTip().isEmpty());
  EXPECT_EQ(Fit_Check_Box(box, 40), 40);
  EXPECT_EQ(box.toolTip(), "Use: 123456789");
}

TEST(TickBox, ANumberIsShownSmallerRatherThanCutOff) {
  QCheckBox box("Use: 1204");
  box.resize(Fit_Check_Box(box, 55), 25);  // the room in a pane of 248 pixels
  QStyleOptionButton option;
  option.initFrom(&box);
  const QRect caption = box.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &box);
  EXPECT_LE(QFontMetricsF(box.font()).horizontalAdvance(box.text()), caption.width());
  Fit_Check_Box(box, 500);
  EXPECT_EQ(box.font().pixelSize(), Control_Font().pixelSize());
}

TEST(TextBoxOnScreen, IsHighEnoughForItsTextAtFifteenPixels) {
  QWidget window;
  TextBoxWidget box(&window);
  EXPECT_LE(QFontMetrics(box.font()).height() + 2, 15);
}

TEST(TextBoxOnScreen, SqueezesATextALittleTooLongAndShowsItsBeginning) {
  TextBoxWidget box(nullptr);
  box.resize(60, 15);
  TextBox record;
  record.Text = "-0.0118386";
  Show_Control(box, record);
  EXPECT_LE(QFontMetrics(box.font()).horizontalAdvance(box.text()), 60 - 6);
  EXPECT_EQ(box.cursorPosition(), 0);
}

TEST(TextBoxOnScreen, ATextThatDoesNotFitIsToldByItsToolTip) {
  TextBoxWidget box(nullptr);
  box.resize(60, 15);
  TextBox record;
  record.Text = "2532.0";
  Show_Control(box, record);
  EXPECT_EQ(box.toolTip(), "");
  record.Text = "2532.0      12099.0";
  Show_Control(box, record);
  EXPECT_EQ(box.toolTip(), "2532.0      12099.0");
}

TEST(Texts, OldLatinTextsAreReadCorrectly) {
  EXPECT_EQ(Qt_Text("m\xe4nty"), QString("m\u00e4nty"));
  EXPECT_EQ(Qt_Text("m\xc3\xa4nty"), QString("m\u00e4nty"));
}

TEST(Texts, AmpersandInACaptionIsShown) {
  EXPECT_EQ(Caption_Text("obs & Widths"), "obs && Widths");
}

}  // namespace
}  // namespace sylvomex
