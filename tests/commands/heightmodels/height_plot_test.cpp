// SPDX-License-Identifier: MIT
#include "commands/heightmodels/height_plot.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "commands/heightmodels/raster_commands.h"
#include "commands/heightmodels/tin_site.h"
#include "platform/files.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

/// Row k of the map is (k, 2 k, 3 k).
std::string Map_Text() {
  std::string text;
  for (int k = 1; k <= 64; ++k) {
    text += std::to_string(k) + "," + std::to_string(2 * k) + "," + std::to_string(3 * k) + "\n";
  }
  return text;
}

struct PlottedDem : SyntheticBlock, testing::Test {
  PlottedDem() {
    Add_Camera(0, 0, 1000);
    w.PaneWidth = w.PaneHeight = 2000;
    folder.Write("c/data/JetColorMAP.csv", Map_Text());
    w.Solution3D = {0, 0, 120};
    w.SolutionValid = true;
  }

  /// Cells of 10 m, 10 x 10 from (-50, -50): the western half 100 m high, the eastern half 180 m.
  void Load_Step() {
    Write_Level_Raster(folder, "dem", -50, -50, 10, 0);
    std::vector<float> cells;
    for (int i = 0; i < 100; ++i) cells.push_back(i % 10 < 5 ? 100.0F : 180.0F);
    folder.Write("c/data/dem.bin", {reinterpret_cast<const char*>(cells.data()), 400});
    Load();
  }
  void Load() {
    screen.files = {"c:\\data\\dem.hdr"};
    screen.inputs = {"0"};
    Add_height_Model(w);
    screen.servicings = 0;
  }
};

TEST_F(PlottedDem, NeedsADem) {
  Test_DEM(w);
  EXPECT_EQ(screen.messages, std::vector<std::string>{"Read raster DEM first"});
  EXPECT_TRUE(Marks(0).empty());
}

TEST_F(PlottedDem, NeedsTheColourMap) {
  Load_Step();
  Delete_File(w.Drives.Locate("c:\\data\\JetColorMAP.csv"));
  EXPECT_THROW(Test_DEM(w), RunTimeError);
}

TEST_F(PlottedDem, WithoutASolutionItDrawsNothing) {
  Load_Step();
  w.SolutionValid = false;
  std::vector<PointerShape> seen;
  screen.on_service = [&] { seen.push_back(w.Form1.MousePointer); };
  Test_DEM(w);
  EXPECT_EQ(seen, std::vector{PointerShape::Hourglass});
  EXPECT_EQ(w.Form1.MousePointer, PointerShape::Normal);
  EXPECT_TRUE(Marks(0).empty());
}

TEST_F(PlottedDem, MarksTheCellsOfTheModelInTheColoursOfTheirHeights) {
  Load_Step();
  Test_DEM(w);
  // Steps of 5 m: X from -55 (the tie -0.5 rounds to column 0) to 40, of which those up to -5 (4.5
  // rounds to 4) are low; Y above -60 up to 40.
  std::set<std::pair<int, int>> places;
  int low = 0, high = 0;
  const std::vector<Mark>& marks = Marks(0);
  for (const Mark& mark : marks) {
    if (mark.kind != Mark::Kind::Point) continue;
    places.insert({static_cast<int>(mark.x1), static_cast<int>(mark.y1)});
    // The lowest height gets index 4 of the scale, row 1; the highest index 253, row 63.
    low += mark.colour == Colour{1, 2, 3} ? 1 : 0;
    high += mark.colour == Colour{63, 126, 189} ? 1 : 0;
  }
  EXPECT_EQ(places.size(), 20U * 20);
  EXPECT_EQ(low, 11 * 20);
  EXPECT_EQ(high, 9 * 20);
}

TEST_F(PlottedDem, TheLegendShowsTheRange) {
  Load_Step();
  Test_DEM(w);
  const Picture& pane = w.Form1.Picture1(0);
  ASSERT_EQ(pane.texts.size(), 1U);
  EXPECT_EQ(pane.texts[0].text, "DTM, 100.0 m to 180.0 m");
  EXPECT_EQ(pane.marks.back().kind, Mark::Kind::Text);
  // The photo's number stands at 5, 5 in 20 points, 27 pixels of 1/96 inch.
  EXPECT_GT(pane.marks.back().y1, 5 + 27);
  EXPECT_EQ(pane.DrawWidth, 1);
}

TEST_F(PlottedDem, APlainOfOneHeightHasOneColour) {
  Write_Level_Raster(folder, "dem", -100, -100, 20, 50);
  Load();
  Test_DEM(w);
  EXPECT_EQ(w.Form1.Picture1(0).texts.at(0).text, "DTM, 50.0 m to 50.0 m");
  for (const Mark& mark : Marks(0)) {
    if (mark.kind == Mark::Kind::Point) {
      ASSERT_EQ(mark.colour, (Colour{1, 2, 3}));
    }
  }
}

TEST_F(PlottedDem, HeightsBelowTenAreIgnored) {
  Write_Level_Raster(folder, "dem", -100, -100, 20, 9.9F);
  Load();
  Test_DEM(w);
  EXPECT_TRUE(Marks(0).empty());
}

TEST_F(PlottedDem, OnlyCellsInThePaneAreMarkedAndEachPixelOnce) {
  Write_Level_Raster(folder, "dem", -3000, -3000, 600, 50);
  Load();
  w.ImageBlock(0).Z0 = 100000;  // a raw pixel is 10 m, the pane 20 km
  w.PaneWidth = w.PaneHeight = 100;
  w.PaneViews(0) = {0, 0, 2000, 2000, 0.05, 0.05};
  Test_DEM(w);
  std::set<std::pair<int, int>> pixels;
  int points = 0;
  for (const Mark& mark : Marks(0)) {
    if (mark.kind != Mark::Kind::Point) continue;
    ++points;
    EXPECT_TRUE(mark.x1 >= 0 && mark.x1 < 100 && mark.y1 >= 0 && mark.y1 < 100);
    pixels.insert({static_cast<int>(mark.x1), static_cast<int>(mark.y1)});
  }
  EXPECT_GE(points, 20 * 20);  // 4 km at 200 m per pane pixel
  EXPECT_LE(points, 22 * 22);
  EXPECT_EQ(pixels.size(), static_cast<std::size_t>(points));
}

}  // namespace
}  // namespace sylvomex
