// SPDX-License-Identifier: MIT
#include "desktop_aids/measured_dock.h"

#include "aids_fixture.h"
#include "support/failing_calls.h"

namespace sylvomex {
namespace {

class Measured : public AidedDesktop {
 protected:
  static std::string Line(int number, double X, double Y, double rmse, const char* comment) {
    char text[200];
    std::snprintf(text, sizeof text, "%5d,%.2f,%.2f,.00,-99.00,%.2f,1,0,0,%-30s,\n", number, X, Y,
                  rmse, comment);
    return text;
  }

  void Write_Lines(const std::string& text) { site_.Folder().Write(kFile, text); }

  void Open() {
    Main().findChild<QAction*>("MeasuredDock")->trigger();
    ASSERT_TRUE(Dock().isVisible());
    QApplication::processEvents();
    ASSERT_TRUE(Soon([this] { return w().Form1.ClientWidth == Main().centralWidget()->width(); }));
  }

  MeasuredDock& Dock() { return aids_->Measured(); }

  QString Cell(int row, int column) { return Dock().Model().index(row, column).data().toString(); }

  void Click_Row(int row) {
    QTableView& table = Dock().Table();
    const QRect cell = table.visualRect(Dock().Model().index(row, 0));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell.center());
  }

  static constexpr const char* kFile = "c/data/Lehtomaa/Pistedata/PointData.txt";
};

TEST_F(Measured, ShowsTheLinesOfTheObservationFile) {
  Write_Lines(Line(1, 10, 20, 7.5, "spruce") + Line(2, 30, 40, 80, "birch"));
  Open();
  EXPECT_EQ(Dock().Model().rowCount(), 2);
  EXPECT_EQ(Cell(1, MeasuredModel::Number), "2");
  EXPECT_EQ(Cell(1, MeasuredModel::X), "30.00");
  EXPECT_EQ(Cell(0, MeasuredModel::Rmse), "7.50");
  EXPECT_EQ(Cell(0, MeasuredModel::SigmaX), "-");
  EXPECT_EQ(Cell(1, MeasuredModel::Comment), "birch");
}

// The middle of the first image, column and row 500, lies below its camera at (0, 0); a pixel is
// 0.1 m. An RMSE from 30 to 60 um is doubtful, yellow.
TEST_F(Measured, SavedPointsStayOnThePanesThroughARedraw) {
  const int col = w().PaneViews(0).ViewCol + 200;
  const int row = w().PaneViews(0).ViewRow + 150;
  Write_Lines(Line(1, (col - 500) * 0.1, (500 - row) * 0.1, 45, "spruce"));
  const auto is_shown = [&] {
    QApplication::processEvents();
    const QImage pane = Pane(0).grab().toImage();
    const PaneView& view = w().PaneViews(0);
    const QPoint at =
        In_Widget((col - view.ViewCol) * view.ZoomX, (row - view.ViewRow) * view.ZoomY).toPoint();
    for (int x = at.x() - 8; x < at.x(); ++x) {
      if (pane.valid(x, at.y()) && pane.pixel(x, at.y()) == qRgb(255, 210, 0)) return true;
    }
    return false;
  };
  EXPECT_FALSE(is_shown());
  Main().findChild<QAction*>("AidSavedPoints")->trigger();
  EXPECT_TRUE(is_shown());
  const std::size_t marks = w().Form1.Picture1(0).marks.size();
  Wheel(0, 190, 140, 120);
  ASSERT_EQ(w().PaneViews(0).ZoomX, 2);
  EXPECT_TRUE(is_shown());
  EXPECT_EQ(w().Form1.Picture1(0).marks.size(), marks);
  Main().findChild<QAction*>("AidSavedPoints")->trigger();
  EXPECT_FALSE(is_shown());
}

TEST_F(Measured, WithoutAFileTheTableIsEmpty) {
  Open();
  EXPECT_EQ(Dock().Model().rowCount(), 0);
}

TEST_F(Measured, LinesThatCannotBeReadAppearAtTheNextLook) {
  Open();
  Write_Lines(Line(1, 10, 20, 7.5, "spruce"));
  {
    const FailingCall failing(SystemCall::Read, EIO);
    Dock().Model().Refresh();
    EXPECT_TRUE(FailingCall::Has_Happened());
    EXPECT_EQ(Dock().Model().rowCount(), 0);
  }
  Dock().Model().Refresh();
  EXPECT_EQ(Dock().Model().rowCount(), 1);
}

TEST_F(Measured, ASavedLineAppearsAndATakenOneGoes) {
  Write_Lines(Line(1, 10, 20, 7.5, "spruce"));
  Open();
  Write_Lines(Line(1, 10, 20, 7.5, "spruce") + Line(2, 30, 40, 8, "birch"));
  w().screen->Service_Events();
  EXPECT_EQ(Dock().Model().rowCount(), 2);
  Write_Lines(Line(1, 10, 20, 7.5, "spruce"));
  w().screen->Service_Events();
  EXPECT_EQ(Dock().Model().rowCount(), 1);
}

// On Z = 0 a pixel is 0.1 m; the principal point of image a is raw column 500, row 500, image b
// stands 100 m further east.
TEST_F(Measured, AClickBringsThePointToTheMiddleOfEveryPaneAndLeavesTheSolution) {
  Write_Lines(Line(1, 10, -4, 7.5, "") + Line(2, 12, 3, 7.5, ""));
  Open();
  const Point3D before = w().Solution3D;
  // Zoomed in, every pane has room on all sides.
  for (int pane = 0; pane < 2; ++pane) Wheel(pane, 100, 100, 240);
  Click_Row(0);
  const double centre = w().PaneWidth / 2.0 / 3;
  EXPECT_NEAR(w().PaneViews(0).ViewCol, 500 + 100 - centre, 1);
  EXPECT_NEAR(w().PaneViews(0).ViewRow, 500 + 40 - centre, 1);
  EXPECT_EQ(w().Solution3D.X, before.X);
  EXPECT_FALSE(w().SolutionValid);
  EXPECT_EQ(w().Form1.Text1(0).Text, "");
}

TEST_F(Measured, TheFilterKeepsTheLinesThatContainIt) {
  Write_Lines(Line(1, 10, 20, 7.5, "Spruce") + Line(2, 30, 40, 80, "birch"));
  Open();
  QTest::keyClicks(&Dock().Filter_Box(), "spru");
  EXPECT_EQ(Dock().Model().rowCount(), 1);
  EXPECT_EQ(Cell(0, MeasuredModel::Number), "1");
  Dock().Filter_Box().clear();
  EXPECT_EQ(Dock().Model().rowCount(), 2);
}

TEST_F(Measured, AHeadingSortsByItsColumn) {
  Write_Lines(Line(1, 10, 20, 7.5, "") + Line(2, 30, 40, 3, "") + Line(3, 5, 40, 5, ""));
  Open();
  Dock().Model().sort(MeasuredModel::Rmse, Qt::DescendingOrder);
  EXPECT_EQ(Cell(0, MeasuredModel::Number), "1");
  EXPECT_EQ(Cell(2, MeasuredModel::Number), "2");
  Dock().Model().sort(MeasuredModel::X, Qt::AscendingOrder);
  EXPECT_EQ(Cell(0, MeasuredModel::Number), "3");
}

// The limits at which an intersection beeps: 30 and 60 micrometres.
TEST_F(Measured, ColoursTellTheQuality) {
  MeasuredLine line;
  line.readable = true;
  line.rmse_um = 30;
  EXPECT_EQ(Trust_In(line, w().options), Trust::Good);
  line.rmse_um = 30.5;
  EXPECT_EQ(Trust_In(line, w().options), Trust::Doubtful);
  line.rmse_um = 60.5;
  EXPECT_EQ(Trust_In(line, w().options), Trust::Bad);
  line.rmse_um = 0;
  line.readable = false;
  EXPECT_EQ(Trust_In(line, w().options), Trust::Bad);
}

TEST_F(Measured, AnUnreadableLineIsShownAsItIsAndMovesNothing) {
  Write_Lines("no observation\n");
  Open();
  EXPECT_EQ(Cell(0, MeasuredModel::Comment), "no observation");
  const PaneView before = w().PaneViews(0);
  Click_Row(0);
  EXPECT_EQ(w().PaneViews(0).ViewCol, before.ViewCol);
}

TEST_F(Measured, InTheDarkTheLinesAreDarkAndTheLettersOnThemReadable) {
  Write_Lines(Line(1, 2515000, 6860000, 3, "good") + Line(2, 2515001, 6860000, 900, "bad"));
  Open();
  Show_Dark(true);
  const int letters = QApplication::palette().color(QPalette::Text).lightness();
  for (int row = 0; row < 2; ++row) {
    const QModelIndex line = Dock().Model().index(row, 0);
    EXPECT_FALSE(line.data(Qt::ForegroundRole).isValid());
    EXPECT_GT(letters - line.data(Qt::BackgroundRole).value<QColor>().lightness(), 120);
  }
  Show_Dark(false);
}

}  // namespace
}  // namespace sylvomex
