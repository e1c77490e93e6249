// SPDX-License-Identifier: MIT
// Dark windows, numbers in narrow boxes, labels that run into each other, screens that are too
// small.
#include <QScreen>
#include <QScrollArea>

#include "aids_fixture.h"
#include "desktop/readable_text.h"

namespace sylvomex {
namespace {

class LooksTest : public AidedDesktop {
 protected:
  ~LooksTest() override { Show_Dark(false); }

  QAction& Choice(const char* name) { return *Main().findChild<QAction*>(name); }

  /// The difference between the darkest and the lightest pixel of a widget.
  static int Contrast(QWidget& widget) {
    const QImage picture = widget.grab().toImage();
    int darkest = 255, lightest = 0;
    for (int y = 2; y < picture.height() - 2; ++y) {
      for (int x = 2; x < picture.width() - 2; ++x) {
        const int grey = qGray(picture.pixel(x, y));
        darkest = std::min(darkest, grey);
        lightest = std::max(lightest, grey);
      }
    }
    return lightest - darkest;
  }
};

TEST_F(LooksTest, InTheDarkLabelsBoxesAndTheStripStayReadable) {
  Choice("AidDark").trigger();
  EXPECT_TRUE(Soon([&] { return Main().palette().color(QPalette::Window).lightness() < 100; }));
  Choose("Center_to_xyz_click");
  Get<QLineEdit>("Text4").setText("23");
  for (const char* name : {"Label7(0)", "ResultsCaption", "Text4", "Check4", "ParameterLabel(2)"}) {
    EXPECT_GT(Contrast(*Main().Control_Widget(name)), 120) << name;
  }
  Choice("AidDark").trigger();
  EXPECT_TRUE(Soon([&] { return Main().palette().color(QPalette::Window).lightness() > 200; }));
}

TEST_F(LooksTest, ANumberThatIsTooLongForItsBoxLosesDecimals) {
  auto& box = Get<TextBoxWidget>("Text1(0)");
  Pane(0).setFocus();
  box.setText("-0.0123456789012345");
  const QString shown = box.Painted_Text();
  EXPECT_NE(shown, box.text());
  EXPECT_NEAR(shown.toDouble(), -0.0123456789, 1e-4);
  EXPECT_LE(box.fontMetrics().horizontalAdvance(shown), box.width());
  Main().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Main(), 60000));
  box.setFocus();
  EXPECT_EQ(box.Painted_Text(), "-0.0123456789012345");
}

TEST_F(LooksTest, ThinnedLabelsArePaintedAnewAndStayMarks) {
  Picture& picture = w().Form1.Picture1(0);
  picture.ForeColor = {255, 255, 255};
  for (int k = 0; k < 5; ++k) {
    picture.CurrentX = 60 + 2 * k;
    picture.CurrentY = 60 + 3 * k;
    Print_Text(picture, "123.4");
  }
  desktop_->Shown().Mirror();
  const QImage crowded = Pane(0).Painted().copy();
  Choice("AidThinLabels").trigger();
  EXPECT_NE(Pane(0).Painted(), crowded);
  EXPECT_EQ(picture.texts.size(), 5u);
  Choice("AidThinLabels").trigger();
  EXPECT_EQ(Pane(0).Painted(), crowded);
}

TEST_F(LooksTest, AWindowThatIsLargerThanTheScreenScrolls) {
  ASSERT_LT(Main().screen()->availableGeometry().width(), 1252) << "the offscreen screen";
  Choose("Save_XY_Distances");
  FormWindow& distances = Window("Form7");
  ASSERT_TRUE(distances.isVisible());
  EXPECT_LE(distances.width(), Main().screen()->availableGeometry().width());
  auto* scrolling = qobject_cast<QScrollArea*>(distances.centralWidget());
  ASSERT_NE(scrolling, nullptr);
  EXPECT_EQ(scrolling->widget()->width(), 1252);
}

TEST_F(LooksTest, AWindowThatCanBeResizedOpensNoLargerThanTheScreen) {
  const QSize room = Main().screen()->availableGeometry().size();
  ASSERT_LT(room.width(), 1278) << "the offscreen screen";
  Choose("Show_Results_Window");
  FormWindow& results = Window("Form6");
  ASSERT_TRUE(results.isVisible());
  EXPECT_LE(results.width(), room.width());
  EXPECT_LE(results.height(), room.height());
  const QWidget& inside = *results.findChild<QWidget*>("client");
  EXPECT_TRUE(Soon([&] { return w().Form6.ClientWidth == inside.width(); }));
  EXPECT_EQ(w().Form6.ClientHeight, inside.height());
  EXPECT_LE(w().Form6.ClientWidth, room.width());
}

TEST_F(LooksTest, AWindowThatScrollsDownwardsIsWideEnoughForItsBoxesAndTheBar) {
  ASSERT_GT(Main().screen()->availableGeometry().width(), 700);
  FormWindow options(*desktop_, w(), *Find_Window("Form2"), &Main());
  const int tall = Main().screen()->availableGeometry().height();
  w().Form2.ClientHeight = tall;
  options.Scroll_On_Small_Screens();
  options.Mirror_Unshown();
  options.show();
  QApplication::processEvents();
  const auto& scrolling = dynamic_cast<QScrollArea&>(*options.centralWidget());
  EXPECT_GE(scrolling.viewport()->width(), 640);
  EXPECT_LT(options.height(), tall);
}

TEST_F(LooksTest, AWindowThatFitsDoesNotScroll) {
  Choose("Open_Options_Window");
  EXPECT_EQ(qobject_cast<QScrollArea*>(Window("Form2").centralWidget()), nullptr);
}

}  // namespace
}  // namespace sylvomex
