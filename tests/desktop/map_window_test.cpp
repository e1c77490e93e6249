// SPDX-License-Identifier: MIT
#include "desktop_fixture.h"
#include "support/map_files.h"

namespace sylvomex {
namespace {

class MapWindowOnScreen : public DesktopTest {
 protected:
  MapWindowOnScreen() {
    Write_Map(site_.Folder());
    Choose("Open_Map_Window");
  }

  void Open_Map() {
    dialogs_.files.push_back((site_.Folder().Path() / "c/data/map.hdr").string());
    Choose("Open_a_Map", "Form8");
  }

  PictureWidget& Map() { return Get<PictureWidget>("Picture1", "Form8"); }

  static QPoint In_Pane(int px, int py) { return {px + kPictureBorder, py + kPictureBorder}; }

  QColor Shown_At(int px, int py) { return Map().grab().toImage().pixelColor(In_Pane(px, py)); }
};

TEST_F(MapWindowOnScreen, ShowsTheMapThatItsMenuOpens) {
  ASSERT_TRUE(Window("Form8").isVisible());
  EXPECT_EQ(Window("Form8").windowTitle(), "SYLVOMEX MAP window");
  Open_Map();
  EXPECT_EQ(Shown_At(0, 0), QColor(0, 0, 7));
  EXPECT_EQ(Shown_At(100, 50), QColor(100, 50, 7));
}

TEST_F(MapWindowOnScreen, ButtonsOfTheMouseZoomInAndOut) {
  Open_Map();
  QTest::mouseClick(&Map(), Qt::LeftButton, {}, In_Pane(300, 250));
  EXPECT_EQ(Get<QLabel>("Label2", "Form8").text(), "Zoom 200 %");
  QTest::mouseClick(&Map(), Qt::RightButton, {}, In_Pane(300, 250));
  EXPECT_EQ(Get<QLabel>("Label2", "Form8").text(), "Zoom 100 %");
  // Another button centres only: map column 301 comes to the middle of the pane.
  const int centre = w().Map.View.MapPaneWidth / 2;
  const int first = w().Map.View.MapFirstCol;
  QTest::mouseClick(&Map(), Qt::MiddleButton, {}, In_Pane(centre + 40, 250));
  EXPECT_EQ(Get<QLabel>("Label2", "Form8").text(), "Zoom 100 %");
  EXPECT_EQ(w().Map.View.MapFirstCol, first + 40);
}

TEST_F(MapWindowOnScreen, ThePointerIsFollowedWithoutAPress) {
  Open_Map();
  Window("Form8").move(1200, 0);  // beside the main window, which lies above it here
  QTest::mouseMove(&Map(), In_Pane(10, 20));
  const QLabel& read_out = Get<QLabel>("Label1", "Form8");
  EXPECT_TRUE(Soon([&] { return read_out.text() == "11 , 21    1005.50 , 5319.75"; }))
      << read_out.text().toStdString();
}

TEST_F(MapWindowOnScreen, ThePaneFollowsTheWindow) {
  Window("Form8").resize(640, 500);
  ASSERT_TRUE(Soon([&] { return w().Form8.ClientWidth == 640; }));
  EXPECT_EQ(w().Map.View.MapPaneWidth, 636);  // 630 + 1890 mod 4 + 4
  Open_Map();
  EXPECT_EQ(w().Form8.Picture1.bitmap->width, 636);
}

TEST_F(MapWindowOnScreen, TheTitleBarClosesIt) {
  Window("Form8").close();
  EXPECT_FALSE(Window("Form8").isVisible());
  EXPECT_FALSE(w().Form8.Visible);
  Choose("Open_Map_Window");
  EXPECT_TRUE(Window("Form8").isVisible());
}

}  // namespace
}  // namespace sylvomex
