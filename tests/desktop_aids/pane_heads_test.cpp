// SPDX-License-Identifier: MIT
// What stands above panes that are narrower than it.
#include "desktop_aids/pane_heads.h"

#include "aids_fixture.h"

namespace sylvomex {
namespace {

class PaneHeadsTest : public AidedDesktop {
 protected:
  PaneHeadsTest() {
    for (int id : {3, 4, 5, 6}) {
      SmallImage image;
      image.id = id;
      image.X0 = 20 * id;
      Add_Image("more" + std::to_string(id), image);
    }
  }

  /// Six panes in two rows: their side is the smaller one of (width - 140) / 3 and
  /// (height - 140) / 2.
  void Make_Panes(int side) {
    Main().setMinimumSize(1, 1);
    const QSize client(1000, 2 * side + 140);
    Main().resize(Main().size() + client - Main().centralWidget()->size());
    ASSERT_TRUE(Soon([&] { return std::abs(w().PaneWidth - side) < 4; })) << w().PaneWidth;
    QApplication::processEvents();
  }

  std::vector<QWidget*> Above(int k) {
    std::vector<QWidget*> above;
    for (const std::string& name :
         {"Text1(" + std::to_string(2 * k) + ")", "Text1(" + std::to_string(2 * k + 1) + ")",
          "Text12(" + std::to_string(k) + ")", "Label1(" + std::to_string(k) + ")",
          "Check1(" + std::to_string(k) + ")"}) {
      above.push_back(Main().Control_Widget(name));
    }
    return above;
  }
};

TEST_F(PaneHeadsTest, StaysAboveItsPaneAndApart) {
  for (const int side : {100, 160, 240, 280}) {
    Make_Panes(side);
    for (int k = 0; k < 6; ++k) {
      const QRect pane = Pane(k).geometry();
      const std::vector<QWidget*> above = Above(k);
      for (const QWidget* one : above) {
        EXPECT_GE(one->x(), pane.left()) << one->objectName().toStdString() << " at " << side;
        EXPECT_LE(one->geometry().right(), pane.right())
            << one->objectName().toStdString() << " at " << side;
        for (const QWidget* other : above) {
          EXPECT_TRUE(one == other || !one->geometry().intersects(other->geometry()))
              << one->objectName().toStdString() << other->objectName().toStdString() << side;
        }
      }
    }
  }
}

TEST_F(PaneHeadsTest, TheTickShowsItsWholeCaptionOrNoneOfIt) {
  Make_Panes(240);
  const auto& tick = Get<QCheckBox>("Check1(3)");
  EXPECT_GE(tick.width(), tick.sizeHint().width());
  EXPECT_EQ(tick.font().pixelSize(), Control_Font().pixelSize());
  Make_Panes(100);
  EXPECT_LE(tick.width(), 16) << "the caption begins behind it";
  EXPECT_EQ(tick.toolTip(), "Use: 4");
}

// A place in a large photograph: what the pointer's read-out tells behind column and row may go,
// and decimals may, but no digit before them. Beside the caption of the tick it would have to.
TEST_F(PaneHeadsTest, TheReadOutHasColumnAndRowInFull) {
  for (const int side : {80, 88}) {
    Make_Panes(side);
    w().Form1.Label1(0).Caption = "18483.3 12507.8 30 40 18453 12453";
    w().screen->Service_Events();
    const auto& read_out = Get<TextLabel>("Label1(0)");
    const auto& tick = Get<QCheckBox>("Check1(0)");
    const QFontMetrics letters = read_out.fontMetrics();
    ASSERT_GT(letters.horizontalAdvance("18483 12508"),
              read_out.width() + tick.width() - tick.sizeHint().width())
        << side;
    const QString shown = read_out.Painted_Text();
    EXPECT_TRUE(shown.startsWith("18483 12508") || shown.startsWith("18483.3 12507.8"))
        << shown.toStdString() << " at " << side;
    EXPECT_LE(letters.horizontalAdvance(shown), read_out.width()) << side;
  }
}

TEST_F(PaneHeadsTest, TheRecordsKeepTheirPlacesAndWidePanesHaveThem) {
  Make_Panes(100);
  EXPECT_EQ(w().Form1.Check1(0).Left, w().Form1.Picture1(0).Left + 200);
  EXPECT_EQ(w().Form1.Check1(0).Width, 200);
  EXPECT_NE(Get<QCheckBox>("Check1(0)").x(), 203);
  Make_Panes(286);
  Main().resize(Main().width() + 100, Main().height() + 20);
  ASSERT_TRUE(Soon([&] { return w().PaneWidth >= 290; })) << w().PaneWidth;
  QApplication::processEvents();
  EXPECT_EQ(Get<QCheckBox>("Check1(0)").x(), 203);
}

}  // namespace
}  // namespace sylvomex
