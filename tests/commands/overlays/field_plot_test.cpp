// SPDX-License-Identifier: MIT
#include "commands/overlays/field_plot.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

constexpr Colour kYellowMark{255, 255, 0};
constexpr Colour kWhiteMark{255, 255, 255};

struct FieldPlot : testing::Test, SyntheticBlock {
  FieldPlot() {
    Add_Camera(0, 0, 1000);
    Add_Camera(200, 50, 1200);
    folder.Make_Folder("c/temp");
  }

  // Ground of 10 x 10 columns and rows of 100 m from (-500, -500); column i lies at -500 + 100 i.
  void Lay_Ground(float height) {
    w.RasterDem.NCols = w.RasterDem.NRows = 10;
    w.RasterDem.OriginX = w.RasterDem.OriginY = -500;
    w.RasterDem.CellSize = 100;
    Dimension_Cells(w.RasterDem);
    for (std::size_t i = 0; i < 100; ++i) w.RasterDem.Cells[i] = height;
    w.RasterDemLoaded = true;
  }

  void Plot(const std::string& content) {
    folder.Write("c/data/plot.txt", content);
    screen.files.emplace_back("c:\\data\\plot.txt");
    Plot_Field_Plot_Data(w);
  }

  std::string Failure_Of_Plot(const std::string& content) {
    try {
      Plot(content);
    } catch (const RunTimeError& error) {
      return error.what();
    }
    return "no failure";
  }

  std::vector<Mark> Points(int k) {
    std::vector<Mark> points = Marks(k);
    std::erase_if(points, [](const Mark& mark) { return mark.kind != Mark::Kind::Point; });
    return points;
  }
  std::size_t Lines(int k) {
    return static_cast<std::size_t>(
        std::count_if(Marks(k).begin(), Marks(k).end(),
                      [](const Mark& mark) { return mark.kind == Mark::Kind::Line; }));
  }
};

const char* const kPlot =
    "0,100,50,20,1,2,3\n"
    "5,6,0.5,200,15,7,1,0\n"    // yellow
    "6,6,0.5,200,10.1,8,2,0\n"  // green
    "7,6,0.5,200,15,9,3,5\n"    // white
    "8,6,0.5,200,10,10,1,0\n"   // not above the minimum height
    "9,6,0.5,200,15,11,1,-1\n"  // negative code
    ;

TEST_F(FieldPlot, GridHasAVertexEveryHundredMetresOnTheGround) {
  Lay_Ground(30);
  w.Solution3D = {10, -60, 0};  // corner: Int(-3.4) and Int(-4.1), in hundreds
  Plot(kPlot);
  ASSERT_EQ(Lines(0), 18U * 8);
  const Mark& first = Marks(0).front();
  const PanePosition from = Pane_Of(0, {-400, -500, 30}), to = Pane_Of(0, {-400, -400, 30});
  EXPECT_NEAR(first.x1, from.px - 1, 1e-6);
  EXPECT_NEAR(first.y1, from.py - 1, 1e-6);
  EXPECT_NEAR(first.x2, to.px - 1, 1e-6);
  EXPECT_NEAR(first.y2, to.py - 1, 1e-6);
  EXPECT_EQ(first.colour, kWhiteMark);
  EXPECT_EQ(first.width, 1);
}

TEST_F(FieldPlot, VerticesBelowZeroAreSkipped) {
  Lay_Ground(30);
  // One vertex inside the grid: each of its two lines loses one segment.
  w.RasterDem.Cells[4 * 10 + 4] = -1;
  w.Solution3D = {10, -60, 0};
  Plot(kPlot);
  EXPECT_EQ(Lines(0), 18U * 8 - 2);
}

TEST_F(FieldPlot, WithoutAModelThereIsNoGrid) {
  Plot(kPlot);
  EXPECT_EQ(Lines(0), 0U);
}

TEST_F(FieldPlot, TreesAreDrawnAtTheirTopsInTheColourOfTheirClass) {
  Plot(kPlot);
  for (int k = 0; k < 2; ++k) {
    const std::vector<Mark> points = Points(k);
    ASSERT_EQ(points.size(), 3U);
    const Colour colours[] = {kYellowMark, {0, 255, 0}, kWhiteMark};
    const double tops[] = {38.5, 33.6, 38.5};  // height + 20 + 0.5 + 3
    for (std::size_t i = 0; i < 3; ++i) {
      const PanePosition at = Pane_Of(k, {106.0 + static_cast<double>(i), 58, tops[i]});
      EXPECT_NEAR(points[i].x1, at.px - 1, 1e-6);
      EXPECT_NEAR(points[i].y1, at.py - 1, 1e-6);
      EXPECT_EQ(points[i].colour, colours[i]);
      EXPECT_EQ(points[i].width, 3);
    }
    EXPECT_TRUE(w.Form1.Picture1(k).texts.empty());
  }
}

TEST_F(FieldPlot, TreeNumbersAreCyanInArialWhenEnabled) {
  w.options.IncludeTreeNumbers = true;
  Plot(kPlot);
  const Picture& pane = w.Form1.Picture1(1);
  ASSERT_EQ(pane.texts.size(), 3U);
  EXPECT_EQ(pane.texts[0].text, "7");
  EXPECT_EQ(pane.texts[2].text, "9");
  EXPECT_EQ(pane.texts[0].font.name, "Arial");
  EXPECT_EQ(pane.marks.back().colour, (Colour{0, 255, 255}));
}

TEST_F(FieldPlot, EveryTreeIsListedDrawnOrNot) {
  Plot(kPlot);
  const std::string listing =
      "106.00,58.00,38.50,23.50,200.00,15.00,7,1,0\n"
      "107.00,58.00,33.60,23.50,200.00,10.10,8,2,0\n"
      "108.00,58.00,38.50,23.50,200.00,15.00,9,3,5\n"
      "109.00,58.00,33.50,23.50,200.00,10.00,10,1,0\n"
      "110.00,58.00,38.50,23.50,200.00,15.00,11,1,-1\n";
  EXPECT_EQ(folder.Read("c/temp/mk_trees.txt"), listing);
  EXPECT_EQ(folder.Read("c/data/plot_trees.txt"), listing);
}

TEST_F(FieldPlot, ReportsMeanAndRmseOfModelAgainstPlot) {
  Lay_Ground(10);
  // Local ground 9 and 13: differences 1 and -3, mean -1, RMSE sqrt(5).
  Plot("0,0,0,0,0,0,0\n0,0,9,200,15,1,1,0\n0,0,13,200,2,2,1,-1\n");
  EXPECT_EQ(screen.messages, std::vector<std::string>{"Mean difference: -1.00 m RMSE: 2.24 m"});
}

TEST_F(FieldPlot, APlotWithoutTreesIsOneError) {
  EXPECT_EQ(Failure_Of_Plot("0,0,0,0,0,0,0\n"),
            "Division by zero: c:\\data\\plot.txt: a mean of no trees");
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(FieldPlot, ATruncatedRowKeepsWhatWasDrawnAndListed) {
  EXPECT_EQ(Failure_Of_Plot("0,0,0,0,0,0,0\n1,2,3,200,15,1,1,0\n1,2,3,200\n"),
            "Input past end of file: c:\\data\\plot.txt, line 4, item 20");
  EXPECT_EQ(Points(0).size(), 1U);
  EXPECT_EQ(folder.Read("c/temp/mk_trees.txt"), "1.00,2.00,18.00,3.00,200.00,15.00,1,1,0\n");
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(FieldPlot, ListingsAreEmptiedBeforeTheFileIsAskedFor) {
  folder.Write("c/temp/mk_trees.txt", "old\n");
  screen.files.emplace_back(std::nullopt);
  Plot_Field_Plot_Data(w);  // ends quietly when the dialog is dismissed
  EXPECT_TRUE(screen.messages.empty());
  EXPECT_EQ(folder.Read("c/temp/mk_trees.txt"), "");
  EXPECT_EQ(folder.Read("c/data/plot_trees.txt"), "");
}

TEST_F(FieldPlot, AMissingListingFolderIsAnError) {
  std::filesystem::remove(folder.Path() / "c/temp");
  EXPECT_EQ(Failure_Of_Plot(kPlot), "Path not found: c:\\temp\\mk_trees.txt");
}

}  // namespace
}  // namespace sylvomex
