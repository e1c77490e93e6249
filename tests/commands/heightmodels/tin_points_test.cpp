// SPDX-License-Identifier: MIT
#include "commands/heightmodels/tin_points.h"

#include <gtest/gtest.h>

#include "commands/heightmodels/raster_commands.h"
#include "commands/heightmodels/tin_commands.h"
#include "commands/heightmodels/tin_site.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

struct PointsOverTin : SyntheticBlock, testing::Test {
  PointsOverTin() {
    folder.Make_Folder("c/data/vektorit");
    Write_Tin(folder, "a", {});
    screen.files = {"c:\\data\\a.nod", "c:\\data\\a.tri"};
    Add_Tin(w);
  }
};

TEST_F(PointsOverTin, HeightsAreAppendedToTheirFile) {
  folder.Write("c/data/vektorit/1926.txt", "1002.5,1\n1008 9.25\n2000,5\n");
  folder.Write("c/data/vektorit/1926_Heights.txt", "0.00,0.00,0.00\n");
  Get_TIN_for_Points(w);
  EXPECT_EQ(folder.Read("c/data/vektorit/1926_Heights.txt"),
            "0.00,0.00,0.00\n1002.50,1.00,302.50\n1008.00,9.25,308.00\n2000.00,5.00,-99.00\n");
}

TEST_F(PointsOverTin, ABadPointAppendsNothingAndIsNamed) {
  folder.Write("c/data/vektorit/1926.txt", "1002.5,1\n1008,north\n");
  try {
    Get_TIN_for_Points(w);
    ADD_FAILURE();
  } catch (const RunTimeError& error) {
    EXPECT_STREQ(error.what(),
                 "Type mismatch: c:\\data\\vektorit\\1926.txt, line 2, item 4: \"north\" is not a "
                 "number");
  }
  EXPECT_FALSE(folder.Has("c/data/vektorit/1926_Heights.txt"));
}

TEST_F(PointsOverTin, WithoutItsFileTheCommandFails) {
  EXPECT_THROW(Get_TIN_for_Points(w), RunTimeError);
}

TEST_F(PointsOverTin, ResidualsListBothModelsAndSkipPointsOutsideTheTriangles) {
  Write_Level_Raster(folder, "dem", 900, -100, 40, 305.25F);
  screen.files = {"c:\\data\\dem.hdr"};
  screen.inputs = {"0"};
  Add_height_Model(w);
  folder.Write("c/data/points.txt", "1002,1,300\n1500,5,301\n1008,9,-2.5\n");
  folder.Write("c/data/dem_tin_res.txt", "something that was there before and is long\n");
  screen.files = {"c:\\data\\points.txt"};
  Get_Raster_and_TIN_Residuals(w);
  EXPECT_EQ(screen.file_questions.back().title, "File with X,Y,Z points");
  EXPECT_EQ(screen.file_questions.back().filter, "HDR files (*.*)|*.*");
  EXPECT_EQ(folder.Read("c/data/dem_tin_res.txt"),
            "1002.00,1.00,300.00,305.25,302.00\n1008.00,9.00,-2.50,305.25,308.00\n");
  EXPECT_EQ(screen.messages.back(), "Processed 3 points. Results in c:\\data\\dem_tin_res.txt");
}

TEST_F(PointsOverTin, WithoutARasterItsResidualIsMinus99) {
  folder.Write("c/data/points.txt", "1002,1,300\n");
  screen.files = {"c:\\data\\points.txt"};
  Get_Raster_and_TIN_Residuals(w);
  EXPECT_EQ(folder.Read("c/data/dem_tin_res.txt"), "1002.00,1.00,300.00,-99.00,302.00\n");
}

TEST_F(PointsOverTin, AnInvalidPointFileLeavesTheOldResults) {
  folder.Write("c/data/points.txt", "1002,1,300\n1003,x,300\n");
  folder.Write("c/data/dem_tin_res.txt", "old\n");
  screen.files = {"c:\\data\\points.txt"};
  EXPECT_THROW(Get_Raster_and_TIN_Residuals(w), RunTimeError);
  EXPECT_EQ(folder.Read("c/data/dem_tin_res.txt"), "old\n");
  screen.files = {std::nullopt};
  Get_Raster_and_TIN_Residuals(w);
  EXPECT_EQ(folder.Read("c/data/dem_tin_res.txt"), "old\n");
}

}  // namespace
}  // namespace sylvomex
