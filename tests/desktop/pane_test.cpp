// SPDX-License-Identifier: MIT
#include <QClipboard>

#include "desktop_fixture.h"
#include "session/picture_png.h"

namespace sylvomex {
namespace {

class PaneOnScreen : public DesktopTest {
 protected:
  PaneOnScreen() { Add_Two_Images(); }
};

// Full-image col = ViewCol + px; row from the bottom = 1000 - (ViewRow + py). Film x, y are
// (col - 500) and (row - 500) pixels of 10 um.
TEST_F(PaneOnScreen, ClickWritesTheFilmCoordinatesOfThePositionUnderThePointer) {
  Click_Pane(0, 100, 50);
  const double x = (w().PaneViews(0).ViewCol + 100 - 500) * 1e-5;
  const double y = (1000 - (w().PaneViews(0).ViewRow + 50) - 500) * 1e-5;
  EXPECT_NEAR(std::stod(w().Form1.Text1(0).Text), x, 1e-7);
  EXPECT_NEAR(std::stod(w().Form1.Text1(1).Text), y, 1e-7);
  EXPECT_EQ(Get<QLineEdit>("Text1(0)").text().toStdString(), w().Form1.Text1(0).Text);
  EXPECT_TRUE(Get<QCheckBox>("Check1(0)").isChecked());
  EXPECT_EQ(w().CurrentImage, 0);
}

// With a scale factor of 2 half a pixel of the window is a pixel of the screen; the position in the
// widget is rounded to pixels of the window, the one in the window is not.
TEST_F(PaneOnScreen, AClickBetweenTwoPixelsOfTheWindowKeepsItsFraction) {
  const QPointF in_window = QPointF(102.5, 52.5) + Pane(0).mapTo(&Main(), QPoint(0, 0));
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(103, 53), in_window,
                    Pane(0).mapToGlobal(QPoint(103, 53)), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(&Pane(0), &press);
  const double x = (w().PaneViews(0).ViewCol + 100.5 - 500) * 1e-5;
  EXPECT_NEAR(std::stod(w().Form1.Text1(0).Text), x, 1e-9);
}

TEST_F(PaneOnScreen, RightClickWithoutModifierDoesNothing) {
  Click_Pane(0, 100, 50, Qt::RightButton);
  EXPECT_EQ(w().Form1.Text1(0).Text, "");
}

TEST_F(PaneOnScreen, ShiftClickZoomsIn) {
  Click_Pane(0, 100, 50);
  Click_Pane(0, 100, 50, Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_EQ(w().PaneViews(0).ZoomX, 2.0);
}

TEST_F(PaneOnScreen, SecondPressOfADoubleClickIsAClickToo) {
  Choose("Draw_Polygon");
  Click_Pane(0, 100, 50, Qt::RightButton);
  const std::size_t before = w().Form1.Picture1(0).marks.size();
  QTest::mouseClick(&Pane(0), Qt::LeftButton, {}, QPoint(60, 60));
  QTest::mouseDClick(&Pane(0), Qt::LeftButton, {}, QPoint(60, 60));
  // Each click appends a vertex and draws all segments: 1, then 2.
  EXPECT_EQ(w().Form1.Picture1(0).marks.size(), before + 3);
}

TEST_F(PaneOnScreen, MovingShowsThePositionAboveThePane) {
  QTest::mouseMove(&Pane(1), QPoint(32, 42));
  const int col = w().PaneViews(1).ViewCol + 30;
  EXPECT_TRUE(Soon(
      [&] { return Get<QLabel>("Label1(1)").text().startsWith(QString::number(col) + ".0 "); }));
}

TEST_F(PaneOnScreen, MissingCursorFileGivesACross) {
  QTest::mouseMove(&Pane(0), QPoint(32, 42));
  EXPECT_TRUE(Soon([&] { return Pane(0).cursor().shape() == Qt::CrossCursor; }));
}

// SmallSite: red is col mod 251, green is row mod 241, blue 7.
TEST_F(PaneOnScreen, ShowsThePixelsOfTheRawFile) {
  const PaneView& view = w().PaneViews(0);
  EXPECT_EQ(Pane(0).Painted().pixel(10, 20),
            qRgb((view.ViewCol + 10) % 251, (view.ViewRow + 20) % 241, 7));
}

TEST_F(PaneOnScreen, MarksAppearAtEventServicing) {
  Picture& picture = w().Form1.Picture1(0);
  picture.DrawWidth = 3;
  Plot_Point(picture, 40, 30, {255, 0, 0});
  w().screen->Service_Events();
  EXPECT_EQ(Pane(0).Painted().pixel(41, 31), qRgb(255, 0, 0));
  EXPECT_NE(Pane(0).Painted().pixel(42, 30), qRgb(255, 0, 0));
}

TEST_F(PaneOnScreen, APictureFileHasThePixelsOfTheScreen) {
  Picture& picture = w().Form1.Picture1(0);
  picture.ForeColor = {255, 255, 0};
  picture.CurrentX = 12.5;
  picture.CurrentY = 20.5;
  Print_Text(picture, "tree 12");
  for (const int width : {1, 2, 3, 8}) {
    picture.DrawWidth = width;
    Plot_Point(picture, 40.5 + 20 * width, 31.5, {255, 0, 0});
    Draw_Line(picture, 10.5, 50.5 + 9 * width, 199.4, 71.5 + 12 * width, {0, 255, 0});
  }
  w().screen->Service_Events();
  const std::filesystem::path file = site_.Folder().Path() / "pane.png";
  Save_Picture_Png(picture, file);
  const QImage saved(QString::fromStdString(file.string()));
  EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), Pane(0).Painted());
}

TEST_F(PaneOnScreen, ErasingRestoresThePicture) {
  const QImage before = Pane(0).Painted();
  Plot_Point(w().Form1.Picture1(0), 40, 30, {255, 0, 0});
  w().screen->Service_Events();
  Choose("Clear_ima");
  EXPECT_EQ(Pane(0).Painted(), before);
}

TEST_F(PaneOnScreen, PointerMoveOverAHundredThousandMarksPaintsNoneOfThemAgain) {
  Picture& picture = w().Form1.Picture1(0);
  for (int k = 0; k < 100000; ++k) Plot_Point(picture, k % 460, k / 460, {0, 255, 0});
  w().screen->Service_Events();
  const auto painted = Pane(0).Marks_Painted();
  EXPECT_GE(painted, 100000U);
  QTest::mouseMove(&Pane(0), QPoint(200, 200));
  EXPECT_TRUE(Soon([&] { return !Get<QLabel>("Label1(0)").text().isEmpty(); }));
  EXPECT_EQ(Pane(0).Marks_Painted(), painted);
}

TEST_F(PaneOnScreen, EachNewMarkIsPaintedOnce) {
  Picture& picture = w().Form1.Picture1(0);
  const auto before = Pane(0).Marks_Painted();
  for (int k = 0; k < 500; ++k) {
    Plot_Point(picture, k % 460, k / 460, {0, 255, 0});
    w().screen->Service_Events();
  }
  EXPECT_EQ(Pane(0).Marks_Painted(), before + 500);
}

TEST_F(PaneOnScreen, CaptureLeavesThePictureOfTheSecondPaneOnTheClipboard) {
  const PaneBitmap& bitmap = *w().Form1.Picture1(1).bitmap;
  Choose("Capture");
  EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(bitmap.width, bitmap.height));
}

}  // namespace
}  // namespace sylvomex
