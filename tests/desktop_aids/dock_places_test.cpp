// SPDX-License-Identifier: MIT
#include "desktop_aids/dock_places.h"

#include "aids_fixture.h"

namespace sylvomex {
namespace {

class DockPlacesTest : public AidedDesktop {
 protected:
  void Make_Client(int width, int height) {
    Main().resize(Main().size() + QSize(width, height) - Main().centralWidget()->size());
    ASSERT_TRUE(Soon([&] { return w().Form1.ClientWidth == width; }));
  }

  void Toggle(const char* dock) {
    Main().findChild<QAction*>(dock)->trigger();
    QApplication::processEvents();
  }

  Qt::DockWidgetArea Side_Of(QDockWidget& dock) { return Main().dockWidgetArea(&dock); }
};

// Two images: the side is the smaller one of (width - 80) / 2 and height - 80.
TEST(RoomBesidePanes, IsWhatTheHeightLeavesOfTheWidth) {
  EXPECT_EQ(Room_Beside_Panes(1700, 580, 2, 0), 620);  // side 500, for which 1080 are enough
  EXPECT_EQ(Room_Beside_Panes(1470, 580, 2, 0), 380);
  EXPECT_EQ(Room_Beside_Panes(1400, 580, 2, 0), 0);  // too little for a dock
  EXPECT_EQ(Room_Beside_Panes(1280, 930, 6, 0), 0);
  EXPECT_EQ(Room_Beside_Panes(1700, 580, 2, 1150), 540);  // the boxes stay in sight
  EXPECT_EQ(Room_Beside_Panes(4000, 580, 0, 0), 760);     // no wider than its table
}

TEST_F(DockPlacesTest, ADockOpensBesideThePanesWhereTheyKeepTheirSize) {
  Make_Client(1600, 580);
  const int side = w().PaneWidth;
  Toggle("MeasuredDock");
  EXPECT_EQ(Side_Of(aids_->Measured()), Qt::RightDockWidgetArea);
  EXPECT_TRUE(Soon([&] { return aids_->Measured().width() >= 380; }));
  EXPECT_EQ(w().PaneWidth, side);
  Toggle("OverlaysDock");  // below the other one, though there is no room left
  EXPECT_EQ(Side_Of(aids_->Overlays()), Qt::RightDockWidgetArea);
  EXPECT_EQ(w().PaneWidth, side);
}

TEST_F(DockPlacesTest, ADockOpensBelowThePanesWhereThereIsNoRoomBesideThem) {
  Toggle("MeasuredDock");
  EXPECT_EQ(Side_Of(aids_->Measured()), Qt::BottomDockWidgetArea);
}

TEST_F(DockPlacesTest, ADockThatWasPutSomewhereStaysThere) {
  Make_Client(1600, 580);
  Main().addDockWidget(Qt::LeftDockWidgetArea, &aids_->Measured());
  Toggle("MeasuredDock");
  EXPECT_EQ(Side_Of(aids_->Measured()), Qt::LeftDockWidgetArea);
}

}  // namespace
}  // namespace sylvomex
