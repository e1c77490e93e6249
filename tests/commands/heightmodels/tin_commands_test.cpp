// SPDX-License-Identifier: MIT
#include "commands/heightmodels/tin_commands.h"

#include <gtest/gtest.h>

#include "commands/heightmodels/raster_commands.h"
#include "commands/heightmodels/tin_site.h"
#include "state/tin_access.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

struct TinFiles : SyntheticBlock, testing::Test {
  TinFiles() {
    Add_Camera(1000, 0, 1000);
    Write_Tin(folder, "a", {});
    screen.files = {"c:\\data\\a.nod", "c:\\data\\a.tri"};
  }

  void Load(const char* name) {
    screen.files = {std::string("c:\\data\\") + name + ".nod",
                    std::string("c:\\data\\") + name + ".tri"};
    Add_Tin(w);
  }
  double Terrain_At(double X, double Y) {
    std::int32_t hint = 0;
    return Get_Tin_Elevation(w, X, Y, hint);
  }
};

TEST_F(TinFiles, AddTinAsksForBothFilesAndLoads) {
  Add_Tin(w);
  ASSERT_EQ(screen.file_questions.size(), 2U);
  EXPECT_EQ(screen.file_questions[0].title, "File with node x,y,z");
  EXPECT_EQ(screen.file_questions[0].filter, "NOD files (*.nod)|*.nod");
  EXPECT_EQ(screen.file_questions[0].filter_index, 1);
  EXPECT_EQ(screen.file_questions[1].title, "File with Triangle ids");
  EXPECT_EQ(screen.file_questions[1].filter, "NOD files (*.tri)|*.tri");
  EXPECT_EQ(w.Form1.Label10.Caption, " TIN - DTM read succesfully");
  EXPECT_TRUE(w.TinDemLoaded);
  EXPECT_NEAR(Terrain_At(1004, 7), 304, 1e-9);
}

TEST_F(TinFiles, TheCanopyIsLiftedByThirtyCentimetresAndTheTerrainIsNot) {
  Add_Tin_CHM(w);
  std::int32_t hint = 0;
  EXPECT_NEAR(Get_Tin_Chm_Elevation(w, 1004, 7, hint), 304.3, 1e-9);
  EXPECT_EQ(w.TinDem.TriangleCount, 0);
  EXPECT_EQ(w.Form1.Label10.Caption, " TIN - DTM read succesfully");
}

TEST_F(TinFiles, ASecondLoadReplacesTheTables) {
  Add_Tin(w);
  Write_Tin(folder, "b", {.west = 2000, .east = 2010, .ground = 50});
  Load("b");
  EXPECT_EQ(Terrain_At(1004, 7), -99);
  EXPECT_NEAR(Terrain_At(2004, 7), 54, 1e-9);
  EXPECT_EQ(w.TinDem.NodeCount, 4);
}

TEST_F(TinFiles, AFailedLoadLeavesTheModelUnchanged) {
  Add_Tin(w);
  folder.Write("c/data/empty.nod", "");
  folder.Write("c/data/text.nod", "1,2,3\n4,five,6\n");
  folder.Write("c/data/outside.nod", "5000,0,1\n5010,0,1\n5000,10,1\n");
  folder.Write("c/data/outside.tri", "0,1,3\n");
  for (const char* name : {"none", "empty", "text", "outside"}) {
    EXPECT_THROW(Load(name), RunTimeError) << name;
    EXPECT_EQ(w.TinDem.NodeCount, 4);
    EXPECT_EQ(w.TinDem.TileMinX, 1000);
    EXPECT_NEAR(Terrain_At(1004, 7), 304, 1e-9);
  }
}

TEST_F(TinFiles, AFailedFirstLoadIsNotShownAsLoaded) {
  folder.Write("c/data/a.tri", "0,1,4\n");
  EXPECT_THROW(Add_Tin(w), RunTimeError);
  EXPECT_FALSE(w.TinDemLoaded);
  EXPECT_EQ(w.Form1.Label10.Caption.find("read succesfully"), std::string::npos);
}

TEST_F(TinFiles, ADismissedDialogChangesNothing) {
  Add_Tin(w);
  screen.files = {std::nullopt};
  Add_Tin(w);
  screen.files = {"c:\\data\\a.nod", std::nullopt};
  Add_Tin(w);
  EXPECT_NEAR(Terrain_At(1004, 7), 304, 1e-9);
}

TEST_F(TinFiles, ADegenerateTriangleStopsTheReadingAndTheOnesBeforeAreUsed) {
  folder.Write("c/data/a.tri", "0,1,2\n2,2,3\n0,2,3\n");
  Add_Tin(w);
  EXPECT_EQ(screen.messages, std::vector<std::string>{"Cant divide with zero!"});
  EXPECT_EQ(w.TinDem.TriangleCount, 1);
  EXPECT_NEAR(Terrain_At(1008, 2), 308, 1e-9);
  EXPECT_EQ(Terrain_At(1002, 8), -99);
  EXPECT_FALSE(w.TinDemLoaded);
  EXPECT_EQ(w.Form1.Label10.Caption,
            " TIN: triangle 2 is degenerate, the reading stopped there; the 1 before it serve");
}

TEST_F(TinFiles, SmallCoordinatesWarnOncePerTriangle) {
  Write_Tin(folder, "a", {.west = 0, .east = 10});
  Add_Tin(w);
  EXPECT_EQ(screen.messages, (std::vector<std::string>{"!", "!"}));
  EXPECT_TRUE(w.TinDemLoaded);
}

TEST_F(TinFiles, DisplayCommandsDoNothingWithoutASolution) {
  Add_Tin(w);
  Get_TIN_elevation(w);
  Get_TIN_DTM_Opt(w);
  Get_TIN_CHM_Elev(w);
  EXPECT_TRUE(Marks(0).empty());
  EXPECT_EQ(w.Form1.Label10.Caption, " TIN - DTM read succesfully");
}

struct SolutionOverTin : TinFiles {
  SolutionOverTin() {
    Add_Tin(w);
    w.Solution3D = {1004, 7, 304.5};
    w.SolutionValid = true;
  }

  /// Marks of the raster's display command on a raster of the same height.
  std::vector<Mark> Raster_Marks() {
    Write_Level_Raster(folder, "dem", 900, -100, 40, 304);
    screen.files = {"c:\\data\\dem.hdr"};
    screen.inputs = {"0"};
    Add_height_Model(w);
    Get_elevation(w);
    const std::vector<Mark> marks = Marks(0);
    Erase_Marks(w.Form1.Picture1(0));
    return marks;
  }
};

void Expect_Same_Marks(const std::vector<Mark>& marks, const std::vector<Mark>& wanted) {
  ASSERT_EQ(marks.size(), wanted.size());
  for (std::size_t i = 0; i < marks.size(); ++i) {
    EXPECT_EQ(marks[i].kind, wanted[i].kind);
    EXPECT_NEAR(marks[i].x1, wanted[i].x1, 1e-6);
    EXPECT_NEAR(marks[i].y1, wanted[i].y1, 1e-6);
    EXPECT_EQ(marks[i].colour, wanted[i].colour);
  }
}

TEST_F(SolutionOverTin, TerrainCommandsShowTextAndMarksOfTheRasterCommand) {
  const std::vector<Mark> wanted = Raster_Marks();
  ASSERT_FALSE(wanted.empty());
  for (const auto command : {Get_TIN_elevation, Get_TIN_DTM_Opt}) {
    w.Form1.Label10 = {};
    command(w);
    EXPECT_EQ(w.Form1.Label10.Caption, "Ground: 304.00 m Difference: .50 m");
    EXPECT_EQ(w.Form1.Label10.FontSize, 10);
    EXPECT_TRUE(w.Form1.Label10.FontBold);
    Expect_Same_Marks(Marks(0), wanted);
    Erase_Marks(w.Form1.Picture1(0));
  }
}

TEST_F(SolutionOverTin, TheFirstTerrainCommandReadsTheTileFile) {
  folder.Write("c/data/Tris/000000.bin", "bad");
  EXPECT_THROW(Get_TIN_elevation(w), RunTimeError);
  Get_TIN_DTM_Opt(w);
  EXPECT_EQ(w.Form1.Label10.Caption, "Ground: 304.00 m Difference: .50 m");
}

TEST_F(SolutionOverTin, TheCanopyCommandShowsItsHeight) {
  Write_Tin(folder, "canopy",
            {.west = 900, .south = -100, .east = 1100, .north = 100, .ground = 320, .slope = 0});
  screen.files = {"c:\\data\\canopy.nod", "c:\\data\\canopy.tri"};
  Add_Tin_CHM(w);
  Get_TIN_CHM_Elev(w);
  EXPECT_EQ(w.Form1.Label10.Caption, "Canopy: 320.30 m Difference: -15.80 m");
  EXPECT_TRUE(w.Form1.Label10.FontBold);
}

TEST_F(SolutionOverTin, TheCanopySurfaceIsALatticeOfBlocksAndLines) {
  // The canopy ends at X 1004: of the 21 columns from 954 to 1054 the 11 up to 1004 are covered.
  // Its southern edge lies at Y -93 (outside), so all rows from -43 to 57 are covered.
  Write_Tin(folder, "canopy",
            {.west = 900, .south = -93, .east = 1004, .north = 100, .ground = 320, .slope = 0});
  screen.files = {"c:\\data\\canopy.nod", "c:\\data\\canopy.tri"};
  Add_Tin_CHM(w);
  Write_Level_Raster(folder, "dem", 800, -200, 60, 304);
  screen.files = {"c:\\data\\dem.hdr"};
  screen.inputs = {"0"};
  Add_height_Model(w);
  Get_TIN_CHM_Elev(w);
  const std::vector<Mark>& marks = Marks(0);
  constexpr std::size_t kColumns = 11, kRows = 21;
  ASSERT_EQ(marks.size(), 9 * kColumns * kRows + (kColumns - 1) * kRows + kColumns * (kRows - 1));
  const PanePosition first = Pane_Of(0, {954, -43, 320.3});
  EXPECT_NEAR(marks[0].x1, first.px - 1, 1e-6);
  EXPECT_NEAR(marks[8].y1, first.py + 1, 1e-6);
  for (const Mark& mark : marks) EXPECT_EQ(mark.colour, (Colour{255, 0, 0}));
  const PanePosition second = Pane_Of(0, {954, -38, 320.3});
  EXPECT_EQ(marks[18].kind, Mark::Kind::Line);
  EXPECT_NEAR(marks[18].x1, first.px, 1e-6);
  EXPECT_NEAR(marks[18].y2, second.py, 1e-6);
}

TEST_F(SolutionOverTin, CanopyBelowTheGroundIsNotDrawn) {
  Write_Tin(folder, "canopy",
            {.west = 900, .south = -100, .east = 1100, .north = 100, .ground = 300, .slope = 0});
  screen.files = {"c:\\data\\canopy.nod", "c:\\data\\canopy.tri"};
  Add_Tin_CHM(w);
  Write_Level_Raster(folder, "dem", 800, -200, 60, 304);
  screen.files = {"c:\\data\\dem.hdr"};
  screen.inputs = {"0"};
  Add_height_Model(w);
  Get_TIN_CHM_Elev(w);
  EXPECT_TRUE(Marks(0).empty());
}

}  // namespace
}  // namespace sylvomex
