// SPDX-License-Identifier: MIT
#include "commands/overlays/plot_point_set.h"

#include <gtest/gtest.h>

#include "overlays/observation_points.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

std::string Rows_Of_Colours(int count) {
  std::string rows;
  for (int i = 1; i <= count; ++i) rows += std::to_string(i) + ",0,200\n";
  return rows;
}

struct PointFile : SyntheticBlock {
  PointFile() {
    Add_Camera(0, 0, 1000);
    Add_Camera(200, 0, 1000);
    folder.Write("c/data/JetColorMAP.csv", Rows_Of_Colours(64));
  }
  void Write_Points(std::string_view content) { folder.Write("c/data/points.txt", content); }
  std::string Failure_Of_Plot() {
    try {
      Plot_Point_Set(w);
    } catch (const RunTimeError& error) {
      return error.what();
    }
    return "no failure";
  }
};

TEST(PlotPointSet, DrawsYellowThenWhiteOnEveryImage) {
  PointFile b;
  b.Write_Points("12,100.00,5.00,20.00,-99.00,1.00,0,0,2,text,\n");
  Plot_Point_Set(b.w);
  for (int k = 0; k < 2; ++k) {
    const PanePosition at = b.Pane_Of(k, {100, 5, 20});
    ASSERT_EQ(b.Marks(k).size(), 3U);
    const Mark& wide = b.Marks(k)[0];
    const Mark& core = b.Marks(k)[1];
    EXPECT_EQ(wide.colour, (Colour{255, 255, 0}));
    EXPECT_EQ(wide.width, 3);
    EXPECT_EQ(core.colour, (Colour{255, 255, 255}));
    EXPECT_EQ(core.width, 1);
    EXPECT_NEAR(wide.x1, at.px - 1, 1e-6);
    EXPECT_NEAR(wide.y1, at.py - 1, 1e-6);
    EXPECT_NEAR(core.x1, at.px - 1, 1e-6);
    EXPECT_EQ(b.w.Form1.Picture1(k).texts.at(0).text, "12");
  }
}

TEST(PlotPointSet, LabelHasTheColourOfTheHeightAboveGround) {
  PointFile b;
  b.w.RasterDem.NCols = b.w.RasterDem.NRows = 3;
  b.w.RasterDem.CellSize = 100;
  Dimension_Cells(b.w.RasterDem);
  b.w.RasterDemLoaded = true;  // flat at 0
  b.Write_Points("1,100,100,0\n2,100,100,12.5\n3,100,100,900\n");
  Plot_Point_Set(b.w);
  // Index 0 is raised to 4: row 1. 127.5 rounds to 128: row 32. 255 is set to 253: row 63.
  EXPECT_EQ(b.Marks(0).at(2).colour, (Colour{1, 0, 200}));
  EXPECT_EQ(b.Marks(0).at(5).colour, (Colour{32, 0, 200}));
  EXPECT_EQ(b.Marks(0).at(8).colour, (Colour{63, 0, 200}));
}

TEST(PlotPointSet, AnXOfOneOrLessIsSkipped) {
  PointFile b;
  b.Write_Points("1,1.0,5,20\r\n2,.00,.00,.00,\r\n\r\n3,1.01,5,20\r\n");
  Plot_Point_Set(b.w);
  EXPECT_EQ(b.Marks(0).size(), 3U);
  EXPECT_EQ(b.folder.Read("c/apu/quvex.txt"), "1.01,5.00,20.00,-99.00\n");
}

TEST(PlotPointSet, LinesOfAnyLengthAreReadByTheirFirstHundredCharacters) {
  PointFile b;
  b.Write_Points("1,100,5,20," + std::string(500, 'x') + "\n");
  Plot_Point_Set(b.w);
  EXPECT_EQ(b.Marks(0).size(), 3U);
}

TEST(PlotPointSet, ZMayExtendBeyondTheHundredthCharacter) {
  for (const std::size_t comma : {60U, 96U, 99U}) {  // before Z, counted from 0
    for (const char* rest : {"155.25", "155.25,0,0"}) {
      PointFile b;
      std::string line = "1,100,5";
      line.resize(comma, ' ');
      b.Write_Points(line + "," + rest + "\n2,100,5,20\n");
      Plot_Point_Set(b.w);
      EXPECT_EQ(b.folder.Read("c/apu/quvex.txt"),
                "100.00,5.00,155.25,-99.00\n100.00,5.00,20.00,-99.00\n");
    }
  }
}

TEST(PlotPointSet, AThirdCommaAfterTheHundredthCharacterIsNotSeen) {
  PointFile b;
  b.Write_Points("1,100,5" + std::string(95, ' ') + ",20\n");
  EXPECT_NE(b.Failure_Of_Plot().find("points.txt, line 1, item 4: number"), std::string::npos);
}

TEST(PlotPointSet, AMalformedLineIsNamed) {
  PointFile b;
  b.Write_Points("1,100,5,20\n2,100,abc,20\n");
  EXPECT_EQ(b.Failure_Of_Plot(),
            "Type mismatch: c:\\data\\points.txt, line 2, item 3: \"abc\" is not a number");
  b.Write_Points("1,100,5,20\n40000,100,3,20\n");
  EXPECT_EQ(b.Failure_Of_Plot(),
            "Overflow: c:\\data\\points.txt, line 2, item 1: 40000 is not in -32768 to 32767");
  b.Write_Points("1,100,5,20\n\n2,100\n");
  EXPECT_NE(b.Failure_Of_Plot().find("points.txt, line 3, item 3: number, X, Y and Z are wanted"),
            std::string::npos);
  EXPECT_TRUE(b.Marks(0).empty());
}

TEST(PlotPointSet, MissingFilesEndTheCommand) {
  PointFile b;
  EXPECT_EQ(b.Failure_Of_Plot(), "File not found: c:\\data\\points.txt");
  std::filesystem::remove(b.folder.Path() / "c/data/JetColorMAP.csv");
  EXPECT_EQ(b.Failure_Of_Plot(), "File not found: C:\\data\\JetColorMAP.csv");
}

}  // namespace
}  // namespace sylvomex
