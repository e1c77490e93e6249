// SPDX-License-Identifier: MIT
#include "desktop_aids/pane_overlay.h"

#include "aids_fixture.h"

namespace sylvomex {
namespace {

class Overlay : public AidedDesktop {
 protected:
  void Turn(const char* name) { Main().menuBar()->findChild<QAction*>(name)->trigger(); }

  QImage Shown(int pane) { return Pane(pane).grab().toImage(); }

  static bool Has_Colour(const QImage& image, const QRect& part, QRgb colour) {
    for (int y = part.top(); y <= part.bottom(); ++y) {
      for (int x = part.left(); x <= part.right(); ++x) {
        if (image.valid(x, y) && image.pixel(x, y) == colour) return true;
      }
    }
    return false;
  }

  /// Whether the aids paint on a pixel of the pane.
  bool Is_Painted_Over(double px, double py) {
    const QPoint at = In_Widget(px, py).toPoint();
    const QRgb with = Shown(0).pixel(at);
    Turn("AidFrames");
    const QRgb without = Shown(0).pixel(at);
    Turn("AidFrames");
    return with != without;
  }

  void Add_Top_Above(double X, double Y) {
    MatchingState& m = w().Matching;
    m.ClusterCount = 1;
    m.ClusterWeight(1) = 2;
    m.ClusterSum(1) = {2 * X, 2 * Y, 0};
    m.ClusterInfo(1).Members = 4;
  }
};

const QRgb kGrey = qRgb(110, 110, 110);
const QRgb kTicked = qRgb(0, 170, 120);
const QRgb kLast = qRgb(255, 210, 0);

TEST_F(Overlay, TheFrameTellsWhetherAnImageTakesPart) {
  EXPECT_EQ(Shown(0).pixel(0, 100), kGrey);
  Click_Pane(0, 100, 50);
  EXPECT_EQ(Shown(0).pixel(0, 100), kLast);
  Click_Pane(1, 100, 50);
  EXPECT_EQ(Shown(0).pixel(0, 100), kTicked);
  EXPECT_EQ(Shown(1).pixel(0, 100), kLast);
}

TEST_F(Overlay, TheRingOfTheObservationSurvivesARedraw) {
  Click_Pane(0, 200, 150);
  const PaneView before = w().PaneViews(0);
  EXPECT_TRUE(Is_Painted_Over(200 + 9, 150));
  EXPECT_FALSE(Is_Painted_Over(200, 150));
  Choose("Center_To_Sub_c_click");
  EXPECT_TRUE(w().Form1.Picture1(0).marks.empty());
  const double px = 200 + before.ViewCol - w().PaneViews(0).ViewCol;
  const double py = 150 + before.ViewRow - w().PaneViews(0).ViewRow;
  EXPECT_TRUE(Is_Painted_Over(px + 9, py));
  EXPECT_FALSE(Is_Painted_Over(px, py));
}

TEST_F(Overlay, TopsAreDrawnWhenTheyAreTurnedOnAndFollowTheView) {
  // On Z = 0 a pixel is 0.1 m; raw column 500 and row 500 lie below the camera of image a.
  const PaneView view = w().PaneViews(0);
  const double px = 500 + 10 - view.ViewCol, py = 500 - view.ViewRow;
  Add_Top_Above(1, 0);
  const QRgb colour = qRgb(255, 70, 200);
  const auto ring = [](double x, double y) {
    return QRect(static_cast<int>(x) + kPictureBorder - 9, static_cast<int>(y) + kPictureBorder - 9,
                 19, 19);
  };
  EXPECT_FALSE(Has_Colour(Shown(0), ring(px, py), colour));
  Turn("AidTops");
  EXPECT_TRUE(Has_Colour(Shown(0), ring(px, py), colour));
  Drag(0, {200, 200}, {240, 230}, Qt::MiddleButton);
  EXPECT_FALSE(Has_Colour(Shown(0), ring(px, py), colour));
  EXPECT_TRUE(Has_Colour(Shown(0), ring(px + 40, py + 30), colour));
  EXPECT_TRUE(w().Form1.Picture1(0).marks.empty());
}

TEST_F(Overlay, SmallMarksAreMadeLargerOnTheScreenOnly) {
  Plot_Point(w().Form1.Picture1(0), 100, 80, {255, 0, 0});
  w().screen->Service_Events();
  const QPoint beside(100 + kPictureBorder + 2, 80 + kPictureBorder);
  EXPECT_NE(Shown(0).pixel(beside), qRgb(255, 0, 0));
  Turn("AidLargeMarks");
  EXPECT_EQ(Shown(0).pixel(beside), qRgb(255, 0, 0));
  EXPECT_EQ(Shown(0).pixel(beside + QPoint(1, 0)), qRgb(0, 0, 0));
  EXPECT_EQ(w().Form1.Picture1(0).marks.size(), 1U);
  EXPECT_EQ(w().Form1.Picture1(0).marks[0].width, 1);
}

TEST_F(Overlay, WithoutFramesThePaneIsAsItWas) {
  Turn("AidFrames");
  aids_->Overlay(0).hide();
  const QImage plain = Shown(0);
  aids_->Overlay(0).show();
  EXPECT_EQ(Shown(0), plain);
}

TEST_F(Overlay, LetsClicksThrough) {
  Click_Pane(0, 20, 5);
  EXPECT_NE(w().Form1.Text1(0).Text, "");
}

// What a narrow pane leaves out its ring and the colour of its frame tell; never the mode.
TEST(NoteOfAPane, LosesTheLeastNeededFirst) {
  PaneNote note;
  note.image_id = 1233;
  note.zoom = "1:1";
  note.mode = "polygon";
  note.clicked_last = note.ticked = true;
  note.observation = NotedObservation{{3754.84, 14243.96}, {10, 20}};
  EXPECT_EQ(Note_Wordings(note),
            (QStringList{"1233   1:1   at 3754.8 14244.0   last click   polygon",
                         "1233   1:1   at 3754.8 14244.0   polygon",
                         "1233   1:1   at 3755 14244   polygon", "1233   1:1   polygon",
                         "1233   polygon"}));
}

}  // namespace
}  // namespace sylvomex
