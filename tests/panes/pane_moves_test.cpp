// SPDX-License-Identifier: MIT
// Wheel and drag on the panes, by script. Both images are vertical with their principal point at
// raw column 500, row 500; the panes of 600 x 600 pixels start at raw 201, 201. On the plane of the
// solution, Z = 0, a pixel is 0.1 m in image a and 0.2 m in image b, which lies twice as high and
// 40 m, so 200 of its pixels, further east.
#include "panes/pane_moves.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "imageblock/bitmap_file.h"
#include "support/one_image_fixture.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

class PaneMoves : public testing::Test {
 protected:
  PaneMoves() {
    SmallImage second;
    second.id = 2;
    second.Z0 = 2000;
    second.X0 = 40;
    start_ = "file " + site_.Write_Image("a", {}) + "\nmenu Add_images_to_set\nfile " +
             site_.Write_Image("b", second) +
             "\nmenu Add_images_to_set\ninput 0\ninput 0\ninput 0\nmenu Set_3D_solution\n"
             "menu Center_To_Sub_c_click\n";
  }

  std::string Transcript(const std::string& script) {
    const PlayedSession played = Play_Script(site_.Folder(), start_ + "say begin\n" + script);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    const std::size_t begin = played.transcript.find("say begin\n");
    return begin == std::string::npos ? played.transcript : played.transcript.substr(begin + 10);
  }

  std::string Views_After(const std::string& steps) {
    return Transcript(steps + "\nprint PaneViews(0)\nprint PaneViews(1)\n");
  }

  SmallSite site_;
  std::string start_;
};

// Raw 301, 251 lie under the pointer before and after.
TEST_F(PaneMoves, TheWheelZoomsOnePaneAboutThePointer) {
  EXPECT_EQ(Views_After("wheel Picture1(0) 100 50 1"),
            "PaneViews(0) = 251 226 600 600 2 2\nPaneViews(1) = 201 201 600 600 1 1\n");
  EXPECT_EQ(Views_After("wheel Picture1(0) 100 50 1\nwheel Picture1(0) 100 50 -1"),
            "PaneViews(0) = 201 201 600 600 1 1\nPaneViews(1) = 201 201 600 600 1 1\n");
}

TEST_F(PaneMoves, TheWheelEndsBeforeTheViewLeavesTheRawFile) {
  EXPECT_EQ(Views_After("wheel Picture1(0) 100 50 -1"),
            "PaneViews(0) = 201 201 600 600 1 1\nPaneViews(1) = 201 201 600 600 1 1\n");
}

// X = (201 + 450 - 500) x 0.1 = 15.1 m under the pointer is column 500 + (15.1 - 40) / 0.2 = 375.5
// of image b, at pane 174.5; row 1000 - 451 = 549, Y = 4.9 m, is row 524.5 of b, from the top
// 475.5, at pane 274.5. The starts are 651 - 225, 451 - 125, 375.5 - 87.25, 475.5 - 137.25.
TEST_F(PaneMoves, WithCtrlAllPanesZoomAboutTheSameObjectPoint) {
  EXPECT_EQ(Views_After("wheel Picture1(0) 450 250 1 ctrl"),
            "PaneViews(0) = 426 326 600 600 2 2\nPaneViews(1) = 288 338 600 600 2 2\n");
}

// The point at pane 10, 250 of a, X = -28.9 m, lies at column 155.5 of b, outside its pane: b zooms
// about its centre 300, 300, raw 501.
TEST_F(PaneMoves, APaneThatDoesNotShowThePointZoomsAboutItsCentre) {
  EXPECT_EQ(Views_After("wheel Picture1(0) 10 250 1 ctrl"),
            "PaneViews(0) = 206 326 600 600 2 2\nPaneViews(1) = 351 351 600 600 2 2\n");
}

TEST_F(PaneMoves, DraggingMovesOnePane) {
  EXPECT_EQ(Views_After("pan Picture1(0) 30 -20"),
            "PaneViews(0) = 171 221 600 600 1 1\nPaneViews(1) = 201 201 600 600 1 1\n");
}

TEST_F(PaneMoves, DraggingStopsAtTheEdgeOfTheRawFile) {
  EXPECT_EQ(Views_After("pan Picture1(0) 999 -999\npan Picture1(0) 1 -1"),
            "PaneViews(0) = 0 400 600 600 1 1\nPaneViews(1) = 201 201 600 600 1 1\n");
}

// 30 and 20 pixels of 0.1 m are 15 and 10 of 0.2 m.
TEST_F(PaneMoves, WithShiftTheOthersFollowByTheSameDistanceOnTheGround) {
  EXPECT_EQ(Views_After("pan Picture1(0) 30 -20 shift"),
            "PaneViews(0) = 171 221 600 600 1 1\nPaneViews(1) = 186 211 600 600 1 1\n");
}

TEST_F(PaneMoves, TheOthersFollowNoFurtherThanTheDraggedPaneWent) {
  EXPECT_EQ(Views_After("pan Picture1(0) 1000 0 shift"),
            "PaneViews(0) = 0 201 600 600 1 1\nPaneViews(1) = 100 201 600 600 1 1\n");
}

TEST_F(PaneMoves, TheObservationAndItsTickStay) {
  EXPECT_EQ(Transcript("click Picture1(0) 100 50\nset Check1(0) 0\nwheel Picture1(0) 9 9 2\n"
                       "pan Picture1(0) 30 7\nprint Text1(0)\nprint Text1(1)\nprint Check1(0)\n"
                       "print CurrentImage\n"),
            "Text1(0) = -0.00199\nText1(1) = 0.00249\nCheck1(0) = 0\nCurrentImage = 0\n");
}

// The first arm of the cross runs from 100, 45 to 100, 48.
TEST_F(PaneMoves, MarksMoveWithThePhotograph) {
  const std::string dragged =
      Transcript("click Picture1(0) 100 50\npan Picture1(0) 30 -20\nmarks Picture1(0)\n");
  EXPECT_TRUE(dragged.starts_with("line 130 25 130 28 5 255 211 1\n")) << dragged;
  // About 100, 50: distances to it double.
  const std::string zoomed =
      Transcript("click Picture1(0) 100 50\nwheel Picture1(0) 100 50 1\nmarks Picture1(0)\n");
  EXPECT_TRUE(zoomed.starts_with("line 100 40 100 46 5 255 211 1\n")) << zoomed;
}

TEST_F(PaneMoves, TheTextInTheCornerStaysThere) {
  const std::string marks =
      Transcript("menu Center_to_xyz_click\npan Picture1(0) 30 -20\nmarks Picture1(0)\n");
  EXPECT_NE(marks.find("\ntext 5 5 \"1    1:08400\""), std::string::npos) << marks;
}

TEST_F(PaneMoves, NothingMovesWhileACrownWidthHasItsFirstEndOnly) {
  EXPECT_EQ(Transcript("set MeasureDistancesCheckBox 1\nclick Picture1(0) 10 10\n"
                       "wheel Picture1(0) 100 50 1 ctrl\npan Picture1(0) 5 5 shift\n"
                       "print PaneViews(0)\nclick Picture1(0) 20 10\npan Picture1(0) 5 5\n"
                       "print PaneViews(0)\n"),
            "beep 800 50\nPaneViews(0) = 201 201 600 600 1 1\n"
            "PaneViews(0) = 196 196 600 600 1 1\n");
}

OperatorEvent Wheel(double px, double py, int notches) {
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Wheel;
  event.control = "Picture1(0)";
  event.x = px;
  event.y = py;
  event.notches = notches;
  return event;
}

OperatorEvent Pan(double dx, double dy) {
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Pan;
  event.control = "Picture1(0)";
  event.x = dx;
  event.y = dy;
  return event;
}

/// Red and green of a picture's pixel.
std::pair<int, int> Colour_At(const PaneBitmap& bitmap, int px, int py) {
  const std::uint8_t* bgr = bitmap.bgr.data() + 3 * (py * bitmap.width + px);
  return {bgr[2], bgr[1]};
}

// SmallSite: red is the raw column mod 251, green the raw row mod 241. One pane of 944 pixels.
TEST_F(OneImage, APanShowsThePixelsOfTheNewViewAndKeepsThemInTheScratchBitmap) {
  Handle_Event(w(), Pan(10, -5));
  const PaneView& view = w().PaneViews(0);
  const PaneBitmap& shown = *w().Form1.Picture1(0).bitmap;
  EXPECT_EQ(Colour_At(shown, 7, 9), std::pair((view.ViewCol + 7) % 251, (view.ViewRow + 9) % 241));
  EXPECT_EQ(Load_Bitmap(w().Drives.Locate("c:\\data\\pic0.bmp")).bgr, shown.bgr);
}

TEST_F(OneImage, AViewWhosePixelsCannotBeReadIsTakenBack) {
  const PaneView before = w().PaneViews(0);
  std::filesystem::remove(w().Drives.Locate("c:\\data\\a.raw").native);
  EXPECT_EQ(Handle_Event(w(), Wheel(10, 10, 1)), EventOutcome::Error);
  EXPECT_EQ(w().PaneViews(0).ZoomX, before.ZoomX);
  EXPECT_EQ(w().PaneViews(0).ViewCol, before.ViewCol);
}

class CorrelationPane : public OneImage {
 protected:
  // A patch of 200 x 150 pixels, pixel (col, row) of which has the value col + row / 2.
  CorrelationPane() {
    PaneBitmap patch;
    patch.width = 200;
    patch.height = 150;
    for (int row = 0; row < 150; ++row) {
      for (int col = 0; col < 200; ++col) {
        patch.bgr.insert(patch.bgr.end(), 3, static_cast<std::uint8_t>(col + row / 2));
      }
    }
    Write_Pane_Bitmap(w().Drives.Locate("c:\\data\\rkuva0.bmp"), patch);
    w().ImageKinds(0) = 2;
    w().CorrelationRecords(0) = w().ImageBlock(0);
    w().CorrelationRecords(0).SubWidth = 200;
    w().CorrelationRecords(0).SubHeight = 150;
    w().CorrelationPaneViews(0) = {0, 0, 0, 0, 1.0, 1.0};
  }
};

TEST_F(CorrelationPane, IsZoomedAndDraggedOverItsPatch) {
  const PaneView photograph = w().PaneViews(0);
  // Patch pixel 100, 80 stays under the pointer, to the nearest pixel.
  Handle_Event(w(), Wheel(100, 80, 15));
  const PaneView& view = w().CorrelationPaneViews(0);
  EXPECT_EQ(view.ZoomX, 16);
  EXPECT_EQ(view.ViewCol, 94);  // 100 - 100 / 16 = 93.75
  EXPECT_EQ(view.ViewRow, 75);  // 80 - 80 / 16
  Handle_Event(w(), Pan(-32, 16));
  EXPECT_EQ(view.ViewCol, 96);
  EXPECT_EQ(view.ViewRow, 74);
  EXPECT_EQ(Colour_At(*w().Form1.Picture1(0).bitmap, 33, 20).first, 98 + 75 / 2);
  EXPECT_EQ(w().PaneViews(0).ZoomX, photograph.ZoomX);
  EXPECT_EQ(w().PaneViews(0).ViewCol, photograph.ViewCol);
}

TEST_F(CorrelationPane, IsNotZoomedOutPastItsPatch) {
  Handle_Event(w(), Wheel(100, 80, -1));
  EXPECT_EQ(w().CorrelationPaneViews(0).ZoomX, 1);
}

TEST_F(OneImage, WheelAndPanOverAPaneWithoutAnImageAreRefused) {
  OperatorEvent event = Wheel(1, 1, 1);
  event.control = "Picture1(3)";
  EXPECT_THROW(Handle_Event(w(), event), UnknownName);
}

}  // namespace
}  // namespace sylvomex
