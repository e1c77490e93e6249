// SPDX-License-Identifier: MIT
#include "commands/heightmodels/model_conversion.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "commands/heightmodels/raster_commands.h"
#include "commands/heightmodels/tin_commands.h"
#include "commands/heightmodels/tin_site.h"
#include "state/tin_access.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

struct Conversion : SyntheticBlock, testing::Test {
  Conversion() { folder.Make_Folder("c/temp"); }

  void Load(const char* name, const TinSheet& sheet, void (*command)(Workspace&)) {
    Write_Tin(folder, name, sheet);
    screen.files = {std::string("c:\\data\\") + name + ".nod",
                    std::string("c:\\data\\") + name + ".tri"};
    command(w);
  }
  void Load_Ground(double origin_X, double origin_Y, float height) {
    Write_Level_Raster(folder, "dem", origin_X, origin_Y, 60, height);
    screen.files = {"c:\\data\\dem.hdr"};
    screen.inputs = {"0"};
    Add_height_Model(w);
  }
  std::vector<float> Floats(const char* name) {
    const std::string bytes = folder.Read(name);
    std::vector<float> cells(bytes.size() / sizeof(float));
    std::memcpy(cells.data(), bytes.data(), cells.size() * sizeof(float));
    return cells;
  }
};

TEST_F(Conversion, ANoAtTheBoxEndsTheCommand) {
  screen.answers = {Answer::No, Answer::No};
  Create_raster_CHM_from_TIN_CHM(w);
  Create_raster_DEM_from_TIN_DEM(w);
  const std::string question = "This routine requires access to source code, Continue?";
  EXPECT_EQ(screen.messages, (std::vector<std::string>{question, question}));
  EXPECT_FALSE(folder.Has("c/temp/tin_chm.raw"));
  EXPECT_FALSE(folder.Has("c/temp/tin_dem.raw"));
}

TEST_F(Conversion, TheCanopyGridHoldsTheCanopyWhereThereIsGround) {
  // Canopy of 25.3 m up to X 368100.25, ground of 20 m from Y 6671590 (exclusive) on.
  Load("chm",
       {.west = 367990,
        .south = 6671490,
        .east = 368100.25,
        .north = 6671900,
        .ground = 25,
        .slope = 0},
       Add_Tin_CHM);
  Load_Ground(368000, 6671600, 20);
  screen.answers = {Answer::Yes};
  std::vector<std::string> progress;
  screen.on_service = [&] { progress.push_back(w.Form1.Label10.Caption); };
  Create_raster_CHM_from_TIN_CHM(w);
  ASSERT_EQ(progress.size(), 400U);
  EXPECT_EQ(progress[0], "0.0 ");
  EXPECT_EQ(progress[1], "0.2 ");  // 0.25, ties to even
  EXPECT_EQ(progress[399], "99.8 ");
  EXPECT_EQ(screen.messages.back(), "Written 400 by 300 elevations");
  EXPECT_EQ(folder.Read("c/temp/tin_chm.hdr"),
            "400\n300\n368000.5\n6671500.5\n1\n-99\nc:\\temp\\tin_chm.raw\n");
  const std::vector<float> cells = Floats("c/temp/tin_chm.raw");
  ASSERT_EQ(cells.size(), 400U * 300);
  for (int row = 0; row < 300; ++row) {
    for (int col = 0; col < 400; ++col) {
      const bool has_both = row >= 90 && col < 100;
      ASSERT_EQ(cells[static_cast<std::size_t>(row * 400 + col)], has_both ? 25.3F : 0.0F)
          << col << " " << row;
    }
  }
}

TEST_F(Conversion, CellsWithGroundBelowOneStayZero) {
  Load("chm", {.west = 367990, .south = 6671490, .east = 368500, .north = 6671900, .ground = 25},
       Add_Tin_CHM);
  Load_Ground(368000, 6671500, 0.99F);
  screen.answers = {Answer::Yes};
  Create_raster_CHM_from_TIN_CHM(w);
  for (const float cell : Floats("c/temp/tin_chm.raw")) ASSERT_EQ(cell, 0);
}

TEST_F(Conversion, TheTerrainGridTakesTheTiledLookup) {
  Load("dem",
       {.west = 2516900,
        .south = 6858300,
        .east = 2517100,
        .north = 6858500,
        .ground = 150,
        .slope = 0.5},
       Add_Tin);
  Load_Ground(2516800, 6858300, 20);
  screen.answers = {Answer::Yes};
  std::vector<std::string> progress;
  screen.on_service = [&] { progress.push_back(w.Form1.Label10.Caption); };
  Create_raster_DEM_from_TIN_DEM(w);
  ASSERT_EQ(progress.size(), 160U);
  EXPECT_EQ(progress[7], "Column 7 of 160");
  EXPECT_EQ(screen.messages.back(), "Written 160 by 140 elevations");
  EXPECT_EQ(folder.Read("c/temp/tin_dem.hdr"),
            "160\n140\n2516880.5\n6858340.5\n1\n-99\nc:\\temp\\tin_dem.raw\n");
  const std::vector<float> cells = Floats("c/temp/tin_dem.raw");
  ASSERT_EQ(cells.size(), 160U * 140);
  for (int col = 0; col < 160; ++col) {
    const double X = 2516880.5 + col;
    const float wanted = X < 2516900 ? -99 : static_cast<float>(150 + 0.5 * (X - 2516900));
    for (int row = 0; row < 140; ++row) {
      ASSERT_NEAR(cells[static_cast<std::size_t>(row * 160 + col)], wanted, 1e-4);
    }
  }
}

TEST_F(Conversion, ABadTileFileEndsTheTerrainGrid) {
  Load("dem", {.west = 2516900, .south = 6858300, .east = 2517100, .north = 6858500}, Add_Tin);
  Load_Ground(2516800, 6858300, 20);
  folder.Write("c/data/Tris/000000.bin", "12345");
  screen.answers = {Answer::Yes};
  EXPECT_THROW(Create_raster_DEM_from_TIN_DEM(w), RunTimeError);
  EXPECT_FALSE(folder.Has("c/temp/tin_dem.raw"));
}

TEST_F(Conversion, RasterizingWritesBothGridsAndReportsTheCells) {
  Load("dem", {}, Add_Tin);
  std::vector<std::string> progress;
  screen.on_service = [&] { progress.push_back(w.Form1.Label10.Caption); };
  TIN2RASTER_Fast(w);
  EXPECT_EQ(progress, (std::vector<std::string>{"0", "1"}));
  const std::vector<float> heights = Floats("c/temp/varrio.raw");
  const std::string greys = folder.Read("c/temp/test.raw");
  ASSERT_EQ(heights.size(), 101U * 101);
  ASSERT_EQ(greys.size(), 101U * 101);
  int inside = 0;
  for (int row = 0; row < 101; ++row) {
    for (int col = 0; col < 101; ++col) {
      // Lattice points lie 2 mm west and 1 mm south of the whole metres.
      const bool belongs = col >= 1 && col <= 10 && row >= 1 && row <= 10;
      inside += belongs ? 1 : 0;
      const auto cell = static_cast<std::size_t>(row * 101 + col);
      ASSERT_NEAR(heights[cell], belongs ? 300 + col - 0.002 : 0, 1e-4);
      ASSERT_EQ(static_cast<unsigned char>(greys[cell]), belongs ? 55 + col : 0);
    }
  }
  EXPECT_EQ(inside, 100);
  EXPECT_EQ(screen.messages.back(), "100");
}

TEST_F(Conversion, AHeightOutsideTheByteEndsTheCommand) {
  Load("dem", {.ground = 495}, Add_Tin);
  try {
    TIN2RASTER_Fast(w);
    ADD_FAILURE();
  } catch (const RunTimeError& error) {
    // Z = 495 + X - 1000 leaves the bytes at column 6, 5.998 m east of the corner.
    EXPECT_STREQ(error.what(),
                 "Overflow: the height 500.998 m at 1005.998, 0.999 is not in 245 to 500 m");
  }
  EXPECT_FALSE(folder.Has("c/temp/test.raw"));
  EXPECT_FALSE(folder.Has("c/temp/varrio.raw"));
}

TEST_F(Conversion, WithoutTrianglesOneCellIsWritten) {
  TIN2RASTER_Fast(w);
  EXPECT_EQ(folder.Read("c/temp/test.raw"), std::string(1, '\0'));
  EXPECT_EQ(screen.messages.back(), "0");
}

TEST_F(Conversion, ALoadBegunInTheMiddleEndsInAMessageAtWorst) {
  Load("dem", {}, Add_Tin);
  Write_Tin(folder, "far", {.west = 5000, .south = 5000, .east = 5010, .north = 5010});
  bool loaded = false;
  screen.on_service = [&] {
    if (std::exchange(loaded, true)) return;
    screen.files = {"c:\\data\\far.nod", "c:\\data\\far.tri"};
    Add_Tin(w);
  };
  EXPECT_THROW(TIN2RASTER_Fast(w), RunTimeError);
}

TEST_F(Conversion, ALoadBegunWhileAGridIsFilledIsUsedForTheRest) {
  Load("chm",
       {.west = 367990,
        .south = 6671490,
        .east = 368500,
        .north = 6671900,
        .ground = 25,
        .slope = 0},
       Add_Tin_CHM);
  Load_Ground(367990, 6671490, 20);
  Write_Tin(folder, "higher",
            {.west = 367990,
             .south = 6671490,
             .east = 368500,
             .north = 6671900,
             .ground = 30,
             .slope = 0});
  int columns = 0;
  screen.on_service = [&] {
    if (++columns != 200) return;
    screen.files = {"c:\\data\\higher.nod", "c:\\data\\higher.tri"};
    Add_Tin_CHM(w);
  };
  screen.answers = {Answer::Yes};
  Create_raster_CHM_from_TIN_CHM(w);
  const std::vector<float> cells = Floats("c/temp/tin_chm.raw");
  EXPECT_EQ(cells[198], 25.3F);
  EXPECT_EQ(cells[199], 30.3F);
}

}  // namespace
}  // namespace sylvomex
