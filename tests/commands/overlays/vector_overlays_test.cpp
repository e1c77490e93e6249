// SPDX-License-Identifier: MIT
#include "commands/overlays/vector_overlays.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "support/synthetic_block.h"
#include "workspace/menu_modes.h"

namespace sylvomex {
namespace {

constexpr Colour kYellowMark{255, 255, 0};
constexpr Colour kRedMark{255, 0, 0};
constexpr Colour kWhiteMark{255, 255, 255};

struct Overlays : testing::Test, SyntheticBlock {
  Overlays() {
    Add_Camera(0, 0, 1000);
    Add_Camera(200, 50, 1200);
    folder.Make_Folder("d");
  }

  // Flat ground of 1 km around the origin.
  void Lay_Ground(float height) {
    w.RasterDem.NCols = w.RasterDem.NRows = 20;
    w.RasterDem.OriginX = w.RasterDem.OriginY = -1000;
    w.RasterDem.CellSize = 100;
    Dimension_Cells(w.RasterDem);
    for (std::size_t i = 0; i < 400; ++i) w.RasterDem.Cells[i] = height;
    w.RasterDemLoaded = true;
  }

  void Choose_File(const std::string& content) {
    folder.Write("c/data/rows.txt", content);
    screen.files.emplace_back("c:\\data\\rows.txt");
  }

  // Pane position at which overlays draw an object point.
  [[nodiscard]] PanePosition Overlay(int k, const Point3D& point) const {
    const PanePosition at = Pane_Of(k, point);
    return {at.px - 1, at.py - 1};
  }

  void Expect_Point(const Mark& mark, PanePosition at, Colour colour, int width) {
    EXPECT_EQ(mark.kind, Mark::Kind::Point);
    EXPECT_NEAR(mark.x1, at.px, 1e-6);
    EXPECT_NEAR(mark.y1, at.py, 1e-6);
    EXPECT_EQ(mark.colour, colour);
    EXPECT_EQ(mark.width, width);
  }

  void Expect_Line(const Mark& mark, PanePosition from, PanePosition to, Colour colour, int width) {
    EXPECT_EQ(mark.kind, Mark::Kind::Line);
    EXPECT_NEAR(mark.x1, from.px, 1e-6);
    EXPECT_NEAR(mark.y1, from.py, 1e-6);
    EXPECT_NEAR(mark.x2, to.px, 1e-6);
    EXPECT_NEAR(mark.y2, to.py, 1e-6);
    EXPECT_EQ(mark.colour, colour);
    EXPECT_EQ(mark.width, width);
  }

  std::string Failure_Of(void (*command)(Workspace&)) {
    try {
      command(w);
    } catch (const RunTimeError& error) {
      return error.what();
    }
    return "no failure";
  }
};

TEST_F(Overlays, SegmentsAreRedUnderWhiteAtHeight155OnEveryImage) {
  Choose_File("1,10,20,-30,40\nLM2 0 0 5 5\n");
  Plot_3D_line_segments(w);
  EXPECT_EQ(screen.file_questions.at(0).title, "File which has Plot-Border data!");
  EXPECT_EQ(screen.file_questions.at(0).filter, "3D-data files (*.txt)|*.txt");
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(Marks(k).size(), 4U);
    const PanePosition from = Overlay(k, {10, 20, 155}), to = Overlay(k, {-30, 40, 155});
    Expect_Line(Marks(k)[0], from, to, kRedMark, 5);
    Expect_Line(Marks(k)[1], from, to, kWhiteMark, 1);
    Expect_Line(Marks(k)[2], Overlay(k, {0, 0, 155}), Overlay(k, {5, 5, 155}), kRedMark, 5);
  }
}

TEST_F(Overlays, ATruncatedSegmentIsAnErrorAndThoseBeforeItStay) {
  Choose_File("1,10,20,-30,40\n2,10,20,30\n");
  EXPECT_EQ(Failure_Of(Plot_3D_line_segments),
            "Input past end of file: c:\\data\\rows.txt, line 3, item 10");
  EXPECT_EQ(Marks(0).size(), 2U);
}

TEST_F(Overlays, MeasuredTreesStandOnTheGroundModel) {
  Lay_Ground(30);
  Choose_File("10,20,x,y,12.5,77,1\n");
  Plot_Field_measured_tree_data(w);
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(Marks(k).size(), 2U);
    Expect_Point(Marks(k)[0], Overlay(k, {10, 20, 42.5}), kYellowMark, 6);
    Expect_Point(Marks(k)[1], Overlay(k, {10, 20, 42.5}), kYellowMark, 4);
    EXPECT_EQ(w.Form1.Picture1(k).ForeColor, kWhiteMark);
    EXPECT_EQ(w.Form1.Picture1(k).DrawWidth, 1);
  }
}

TEST_F(Overlays, MeasuredTreesWithAnotherFlagThanOneAreIgnored) {
  Choose_File("10,20,0,0,12.5,77,0\n10,20,0,0,12.5,78,2\n10,20,0,0,12.5,79,-1\n");
  Plot_Field_measured_tree_data(w);
  EXPECT_TRUE(Marks(0).empty());
  EXPECT_TRUE(Marks(1).empty());
}

TEST_F(Overlays, TreeNumbersArePrintedWhenEnabled) {
  w.options.IncludeTreeNumbers = true;
  Choose_File("10,20,0,0,12.5,77,1\n");
  Plot_Field_measured_tree_data(w);
  ASSERT_EQ(Marks(1).size(), 3U);
  EXPECT_EQ(Marks(1)[2].colour, kWhiteMark);
  EXPECT_EQ(w.Form1.Picture1(1).texts.at(0).text, "77");
}

TEST_F(Overlays, CircularPlotIsTwoPolygonsOnTheGround) {
  Lay_Ground(40);
  w.Plot.X = 30;
  w.Plot.Y = -20;
  Plot_Circular_Plot(w);
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(Marks(k).size(), 64U);
    for (std::size_t i = 0; i < 64; ++i) {
      const double t = -3.14 + 3.14 / 16 * static_cast<double>(i % 32), next = t + 3.14 / 16;
      const Colour colour = i < 32 ? Colour{120, 255, 0} : kYellowMark;
      Expect_Line(
          Marks(k)[i], Overlay(k, {30 + 11.28 * std::cos(t), -20 + 11.28 * std::sin(t), 40}),
          Overlay(k, {30 + 11.28 * std::cos(next), -20 + 11.28 * std::sin(next), 40}), colour, 1);
    }
  }
}

TEST_F(Overlays, CrownPointsAreDrawnOnTheFirstImageOnePixelWiderThanTheirSize) {
  Lay_Ground(40);
  folder.Write("d/Regression_results.txt", "a,10,20,3,1,2,3,4\nb,30,40,-7,1,2,3,4\n");
  Plot_Crown_polygons(w);
  ASSERT_EQ(Marks(0).size(), 2U);
  Expect_Point(Marks(0)[0], Overlay(0, {10, 20, 40}), kYellowMark, 4);
  Expect_Point(Marks(0)[1], Overlay(0, {30, 40, 40}), kYellowMark, 1);
  EXPECT_TRUE(Marks(1).empty());
}

TEST_F(Overlays, CrownPointsWithoutImagesDrawNothing) {
  folder.Write("d/Regression_results.txt", "a,10,20,3,1,2,3,4\n");
  w.ImageCount = 0;
  Plot_Crown_polygons(w);
  EXPECT_TRUE(Marks(0).empty());
}

TEST_F(Overlays, TiePointsShowOnTheImagesOfTheirId) {
  folder.Write("c/data/imageobs.txt", "101 7 120.5 300.25\n100,8,50,60\n999 9 1 1\n");
  Plot_Tie_Points(w);
  // Rows are counted from the top, so pane py equals the row at 1:1.
  ASSERT_EQ(Marks(1).size(), 2U);
  Expect_Point(Marks(1)[0], {119.5, 299.25}, kRedMark, 3);
  EXPECT_EQ(w.Form1.Picture1(1).texts.at(0).text, "7");
  ASSERT_EQ(Marks(0).size(), 2U);
  Expect_Point(Marks(0)[0], {49, 59}, kRedMark, 3);
  EXPECT_EQ(w.Form1.Picture1(0).texts.at(0).text, "8");
}

TEST_F(Overlays, ATiePointOfAnImageLoadedTwiceShowsInBothPanes) {
  w.ImageBlock(1).ImageId = 100;
  w.PaneViews(1) = {10, 20, 2000, 2000, 2, 2};
  folder.Write("c/data/imageobs.txt", "100 8 50 60\n");
  Plot_Tie_Points(w);
  Expect_Point(Marks(0).at(0), {49, 59}, kRedMark, 3);
  Expect_Point(Marks(1).at(0), {79, 79}, kRedMark, 3);  // (50 - 10) x 2 - 1, (60 - 20) x 2 - 1
}

TEST_F(Overlays, MissingFilesAreErrors) {
  EXPECT_EQ(Failure_Of(Plot_Tie_Points), "File not found: c:\\data\\imageobs.txt");
  EXPECT_EQ(Failure_Of(Plot_Crown_polygons), "File not found: d:\\Regression_results.txt");
}

TEST_F(Overlays, DismissedDialogsEndQuietly) {
  screen.files = {std::nullopt, std::nullopt};
  Plot_3D_line_segments(w);
  Plot_Field_measured_tree_data(w);
  EXPECT_EQ(screen.file_questions.size(), 2U);
  EXPECT_TRUE(Marks(0).empty());
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Overlays, PolylineConnectsConsecutiveRowsWhenItsModeIsSwitchedOn) {
  folder.Write("c/data/XY_polyline.txt", "0,0,10\n10,0,20\n10,10,30\n");
  Toggle_Draw_XYZ_Polygon(w);
  EXPECT_TRUE(w.Menu.Draw_XYZ_Polygon);
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(Marks(k).size(), 2U);
    Expect_Line(Marks(k)[0], Overlay(k, {0, 0, 10}), Overlay(k, {10, 0, 20}), kYellowMark, 3);
    Expect_Line(Marks(k)[1], Overlay(k, {10, 0, 20}), Overlay(k, {10, 10, 30}), kYellowMark, 3);
  }
  Toggle_Draw_XYZ_Polygon(w);
  EXPECT_FALSE(w.Menu.Draw_XYZ_Polygon);
  EXPECT_EQ(Marks(0).size(), 2U);
}

TEST_F(Overlays, PolylineModeWithoutItsFileOnlySetsTheMark) {
  Toggle_Draw_XYZ_Polygon(w);
  EXPECT_TRUE(w.Menu.Draw_XYZ_Polygon);
  EXPECT_TRUE(Marks(0).empty());
}

TEST_F(Overlays, PolylineModeSetsItsMarkBeforeItReads) {
  folder.Write("c/data/XY_polyline.txt", "0,0,10\n10,0,20\n10,10\n");
  EXPECT_EQ(Failure_Of(Toggle_Draw_XYZ_Polygon),
            "Input past end of file: c:\\data\\XY_polyline.txt, line 4, item 9");
  EXPECT_TRUE(w.Menu.Draw_XYZ_Polygon);
  EXPECT_EQ(Marks(0).size(), 1U);
}

TEST_F(Overlays, DrawPolygonOnlyTogglesItsMark) {
  folder.Write("c/data/XY_polyline.txt", "0,0,10\n10,0,20\n");
  Toggle_Draw_Polygon(w);
  EXPECT_TRUE(w.Menu.Draw_Polygon);
  EXPECT_TRUE(Marks(0).empty());
}

}  // namespace
}  // namespace sylvomex
