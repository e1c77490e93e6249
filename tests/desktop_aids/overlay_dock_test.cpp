// SPDX-License-Identifier: MIT
// Overlays drawn again from their list, by real mouse and keys.
#include "desktop_aids/overlay_dock.h"

#include "aids_fixture.h"
#include "session/session.h"

namespace sylvomex {
namespace {

class OverlayDockTest : public AidedDesktop {
 protected:
  OverlayDockTest() {
    site_.Folder().Write("c/data/borders.txt", "a -10 -10 10 10\n");
    Main().findChild<QAction*>("OverlaysDock")->trigger();
    QApplication::processEvents();
  }

  void Draw_Borders() {
    dialogs_.files.push_back((site_.Folder().Path() / "c/data/borders.txt").string());
    Choose("Plot_3D_line_segments");
  }

  QTreeWidget& Table() { return aids_->Overlays().Table(); }
  QTreeWidgetItem& Line(int k) { return *Table().topLevelItem(k); }
  QPushButton& Button(const char* name) { return *Main().findChild<QPushButton*>(name); }
  std::size_t Marks(int pane) { return w().Form1.Picture1(pane).marks.size(); }

  /// Clicks the tick of a line.
  void Tick(int k) {
    const QRect row = Table().visualItemRect(&Line(k));
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, {row.left() + 8, row.center().y()});
  }
};

TEST_F(OverlayDockTest, WhatACommandDrewStandsThereWithItsColoursAndItsFile) {
  EXPECT_EQ(Table().topLevelItemCount(), 0);
  Draw_Borders();
  ASSERT_EQ(Table().topLevelItemCount(), 1);
  EXPECT_EQ(Line(0).text(0), "Plot 3D-line segments (LMs)");
  EXPECT_EQ(Line(0).text(3), "c:\\data\\borders.txt");
  const std::vector<Colour> red_and_white{{255, 0, 0}, {255, 255, 255}};
  EXPECT_EQ(aids_->Overlays().List().All().at(0).colours, red_and_white);
}

TEST_F(OverlayDockTest, DrawnTwiceItStandsThereOnce) {
  Draw_Borders();
  Draw_Borders();
  EXPECT_EQ(Table().topLevelItemCount(), 1);
}

TEST_F(OverlayDockTest, AnotherFileIsAnotherOverlay) {
  Draw_Borders();
  site_.Folder().Write("c/data/roads.txt", "a -20 -10 20 10\n");
  dialogs_.files.push_back((site_.Folder().Path() / "c/data/roads.txt").string());
  Choose("Plot_3D_line_segments");
  EXPECT_EQ(Table().topLevelItemCount(), 2);
}

TEST_F(OverlayDockTest, AClickDrawsItAgainWithoutADialog) {
  Draw_Borders();
  const std::size_t drawn = Marks(0);
  ASSERT_GT(drawn, 0u);
  const std::size_t asked = dialogs_.titles.size();
  Choose("Clear_ima");
  ASSERT_EQ(Marks(0), 0u);
  Table().setCurrentItem(&Line(0));
  QTest::mouseClick(&Button("DrawOverlay"), Qt::LeftButton);
  EXPECT_EQ(Marks(0), drawn);
  EXPECT_EQ(dialogs_.titles.size(), asked);
}

TEST_F(OverlayDockTest, ATickedOneComesBackAfterAZoomAndAnotherDoesNot) {
  Draw_Borders();
  Choose("Reset_Point_Solution");
  Choose("Center_to_xyz_click");
  QApplication::processEvents();
  const std::size_t without = Marks(0);
  Tick(0);
  ASSERT_TRUE(aids_->Overlays().List().All().at(0).keeps);
  Choose("Center_to_xyz_click");
  QApplication::processEvents();
  EXPECT_GT(Marks(0), without);
}

TEST_F(OverlayDockTest, ClearingThePanesLeavesThemClear) {
  Draw_Borders();
  Tick(0);
  Choose("Clear_ima");
  QApplication::processEvents();
  EXPECT_EQ(Marks(0), 0u);
}

TEST_F(OverlayDockTest, AForgottenOneIsGone) {
  Draw_Borders();
  Table().setCurrentItem(&Line(0));
  QTest::mouseClick(&Button("ForgetOverlay"), Qt::LeftButton);
  EXPECT_EQ(Table().topLevelItemCount(), 0);
}

TEST_F(OverlayDockTest, ACommandThatMeasuresIsNoOverlay) {
  Click_Pane(0, 100, 50);
  Click_Pane(1, 100, 50);
  Choose("Point_Intersection");
  EXPECT_EQ(Table().topLevelItemCount(), 0);
}

TEST_F(OverlayDockTest, DrawingAgainIsRecordedAndPlaysBackToTheSameMarks) {
  Start_Recorded("session.txt");
  Draw_Borders();
  Choose("Clear_ima");
  aids_->Overlays().List().Draw_All_Again();
  const std::size_t drawn = Marks(1);
  ASSERT_GT(drawn, 0u);
  const std::string script = site_.Folder().Read("session.txt");
  site_.Folder().Write("again.txt", script + "marks Picture1(1)\n");
  std::ostringstream transcript, reasons;
  SessionOptions options;
  options.root = site_.Folder().Path();
  options.script = site_.Folder().Path() / "again.txt";
  std::istringstream in;
  EXPECT_EQ(Run_Session(options, {in, transcript, reasons, false}, {}), 0) << reasons.str();
  std::size_t lines = 0;
  for (std::size_t at = 0; (at = transcript.str().find("\nline ", at)) != std::string::npos; ++at) {
    ++lines;
  }
  EXPECT_EQ(lines, drawn) << transcript.str();
}

TEST(LegendPicture, FewColoursAreSquaresAndManyABandFromBlueToRed) {
  const QImage squares = Legend_Picture({{255, 0, 0}, {255, 255, 255}}, {84, 14});
  EXPECT_EQ(squares.pixelColor(5, 7), QColor(255, 0, 0));
  EXPECT_EQ(squares.pixelColor(19, 7), QColor(255, 255, 255));
  EXPECT_EQ(squares.pixelColor(60, 7).alpha(), 0);
  std::vector<Colour> ramp;
  for (int k = 0; k < 8; ++k) {
    const QColor colour = QColor::fromHsv(30 * k, 255, 255);
    ramp.push_back(
        {std::uint8_t(colour.red()), std::uint8_t(colour.green()), std::uint8_t(colour.blue())});
  }
  const QImage band = Legend_Picture(ramp, {84, 14});
  EXPECT_NEAR(band.pixelColor(2, 7).hue(), 210, 1);
  EXPECT_EQ(band.pixelColor(82, 7).hue(), 0);
}

}  // namespace
}  // namespace sylvomex
