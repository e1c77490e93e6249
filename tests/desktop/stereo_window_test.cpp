// SPDX-License-Identifier: MIT
// The anaglyph viewer driven by mouse and keys.
#include <QMouseEvent>

#include "desktop_fixture.h"
#include "stereo/level_pair.h"
#include "stereo/pair_file.h"

namespace sylvomex {
namespace {

class AnaglyphViewer : public DesktopTest {
 protected:
  AnaglyphViewer() {
    StereoPair pair = Level_Pair();
    // The file's start point is X, Y of the right centre at 165 m: near the middle of the rasters.
    site_.Folder().Write("c/data/pair.txt", Pair_File_Text(pair));
    site_.Folder().Write("c/data/left.raw", std::string(400 * 300, '\x50'));
    site_.Folder().Write("c/data/right.raw", std::string(400 * 300, '\x60'));
  }

  void Open_Viewer() {
    Choose("Open_Stereo_window");
    dialogs_.files.push_back((site_.Folder().Path() / "c/data/pair.txt").string());
    Choose("Open_Pair", "Form5");
    ASSERT_TRUE(w().Stereo.PairOpen);
  }

  PictureWidget& Viewer() { return Get<PictureWidget>("Picture1", "Form5"); }

  static QPoint At(int px, int py) { return {px + kPictureBorder, py + kPictureBorder}; }

  /// Moves the mouse and waits until the mark has followed.
  void Move_To(int px, int py) {
    const std::uint64_t before = w().Form5.Picture1.floating_version;
    // Straight to the picture: the windows without a screen overlap.
    QMouseEvent move(QEvent::MouseMove, At(px, py), Viewer().mapToGlobal(At(px, py)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&Viewer(), &move);
    EXPECT_TRUE(Soon([&] { return w().Form5.Picture1.floating_version > before; }));
  }

  QImage Shown() { return Viewer().grab().toImage().convertToFormat(QImage::Format_RGB32); }

  QColor Pixel(int px, int py) { return Shown().pixelColor(At(px, py)); }
};

TEST_F(AnaglyphViewer, OpensFromTheMenuWithItsPictureInFocus) {
  Choose("Open_Stereo_window");
  EXPECT_TRUE(Window("Form5").isVisible());
  EXPECT_EQ(Window("Form5").windowTitle(), "SYLVOMEX Anaglyph stereo window");
  EXPECT_EQ(Window("Form5").focusWidget(), &Viewer());
}

TEST_F(AnaglyphViewer, ShowsRedOfTheLeftAndCyanOfTheRight) {
  Open_Viewer();
  const int middle_x = w().Stereo.StereoWidth / 2, middle_y = w().Stereo.StereoHeight / 2;
  EXPECT_EQ(Pixel(middle_x, middle_y), QColor(0x50, 0x60, 0x60));
}

TEST_F(AnaglyphViewer, TheMarkFollowsTheMouseAndLeavesNothingBehind) {
  Open_Viewer();
  const int x = w().Stereo.StereoWidth / 2, y = w().Stereo.StereoHeight / 2;
  Move_To(x - 30, y);
  const std::string first = w().Form5.Label1.Caption;
  EXPECT_NE(Pixel(x - 30, y - 6), QColor(0x50, 0x60, 0x60));
  Move_To(x + 30, y);
  EXPECT_EQ(Pixel(x - 30, y - 6), QColor(0x50, 0x60, 0x60));
  EXPECT_NE(Pixel(x + 30, y - 6), QColor(0x50, 0x60, 0x60));
  EXPECT_NE(w().Form5.Label1.Caption, first);
  EXPECT_EQ(Get<QLabel>("Label1", "Form5").text().toStdString(), w().Form5.Label1.Caption);
}

TEST_F(AnaglyphViewer, TheMarkTakesThePlaceOfThePointer) {
  Open_Viewer();
  EXPECT_NE(Viewer().cursor().shape(), Qt::BlankCursor);
  Move_To(200, 200);
  EXPECT_EQ(Viewer().cursor().shape(), Qt::BlankCursor);
  Choose("Clear_Anaglyph_Window", "Form5");
  EXPECT_NE(Viewer().cursor().shape(), Qt::BlankCursor);
}

TEST_F(AnaglyphViewer, OnlyThePixelsUnderTheMarkChange) {
  Open_Viewer();
  const QImage before = Shown();
  const int x = w().Stereo.StereoWidth / 2, y = w().Stereo.StereoHeight / 2;
  Move_To(x, y);
  const QImage after = Shown();
  for (int row = 0; row < before.height(); ++row) {
    for (int col = 0; col < before.width(); ++col) {
      const bool near = std::abs(col - At(x, y).x()) < 13 && std::abs(row - At(x, y).y()) < 13;
      if (near) continue;
      ASSERT_EQ(before.pixel(col, row), after.pixel(col, row)) << col << ' ' << row;
    }
  }
}

TEST_F(AnaglyphViewer, KeysMoveTheMarkUpAndDown) {
  Open_Viewer();
  Press_Key(Qt::Key_U, {}, "Form5");
  Press_Key(Qt::Key_U, {}, "Form5");
  Press_Key(Qt::Key_D, {}, "Form5");
  EXPECT_NEAR(w().Stereo.StereoSolution.Z, 165.01, 1e-9);
  EXPECT_TRUE(Get<QLabel>("Label1", "Form5").text().endsWith("Z: 165.01"));
}

TEST_F(AnaglyphViewer, ADoubleClickRecentresAndSavesThePoint) {
  Open_Viewer();
  const int x = w().Stereo.StereoWidth / 2 + 20, y = w().Stereo.StereoHeight / 2 - 10;
  const auto before = w().Stereo.LeftCol;
  Move_To(x, y);
  QTest::mouseDClick(&Viewer(), Qt::LeftButton, {}, At(x, y));
  EXPECT_EQ(w().Stereo.Anchor.X, w().Stereo.StereoSolution.X);
  EXPECT_EQ(w().Stereo.LeftCol, before + 20);
  EXPECT_EQ(w().Stereo.MeasuredPoints.size(), 1U);
  EXPECT_TRUE(w().Form5.Picture1.floating.empty());
  EXPECT_EQ(Pixel(x, y), QColor(0x50, 0x60, 0x60));
}

TEST_F(AnaglyphViewer, ANewSizeGivesThePictureTheRoom) {
  Open_Viewer();
  const int before = w().Stereo.StereoWidth;
  Window("Form5").resize(Window("Form5").width() - 200, Window("Form5").height() - 100);
  EXPECT_TRUE(Soon([&] { return w().Stereo.StereoWidth == before - 200; }));
  EXPECT_EQ(w().Form5.Picture1.bitmap->width, before - 200);
  EXPECT_EQ(Viewer().width(), before - 200 + 2 * kPictureBorder);
}

TEST_F(AnaglyphViewer, TheTitleBarHidesItAndThePairStays) {
  Open_Viewer();
  Window("Form5").close();
  EXPECT_FALSE(Window("Form5").isVisible());
  Choose("Open_Stereo_window");
  EXPECT_TRUE(w().Stereo.PairOpen);
  EXPECT_NE(w().Form5.Picture1.bitmap, nullptr);
}

TEST_F(AnaglyphViewer, ABadPairIsToldOnceAndTheOpenOneStays) {
  Open_Viewer();
  site_.Folder().Write("c/data/bad.txt", "1,2,3\n");
  dialogs_.files.push_back((site_.Folder().Path() / "c/data/bad.txt").string());
  Choose("Open_Pair", "Form5");
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_NE(dialogs_.messages[0].find("bad.txt"), std::string::npos);
  EXPECT_EQ(w().Stereo.Pair.NormalWidth, 400);
}

}  // namespace
}  // namespace sylvomex
