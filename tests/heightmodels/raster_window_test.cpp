// SPDX-License-Identifier: MIT
#include "heightmodels/raster_window.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

/// 40 columns and 30 rows of 2 m from (1000, 500); cell (col, row) is 100 row + col + 1.
struct WindowTest : testing::Test {
  TemporaryFolder folder;
  FilePath file;
  RasterModel whole, part;

  WindowTest() {
    std::vector<float> cells;
    for (int row = 0; row < 30; ++row) {
      for (int col = 0; col < 40; ++col) cells.push_back(static_cast<float>(100 * row + col + 1));
    }
    file = folder.Write(
        "cells.bin", {reinterpret_cast<const char*>(cells.data()), cells.size() * sizeof(float)});
    for (RasterModel* model : {&whole, &part}) {
      model->NCols = 40;
      model->NRows = 30;
      model->OriginX = 1000;
      model->OriginY = 500;
      model->CellSize = 2;
      Dimension_Cells(*model);
    }
    Read_Cells(file, whole);
  }
};

TEST_F(WindowTest, LookupsInsideAnswerAsInTheWholeModel) {
  Read_Cells_Within(file, Window_Of(part, 1010, 510, 1030, 540), part);
  for (double X = 1010; X <= 1030; X += 0.25) {
    for (double Y = 510; Y <= 540; Y += 0.25) {
      ASSERT_EQ(Raster_Height(part, X, Y), Raster_Height(whole, X, Y)) << X << " " << Y;
      ASSERT_GT(Raster_Height(part, X, Y), 0);
    }
  }
}

TEST_F(WindowTest, CellsFarOutsideAreNotRead) {
  Read_Cells_Within(file, Window_Of(part, 1010, 510, 1030, 540), part);
  EXPECT_EQ(Raster_Height(part, 1060, 510), 0);
  EXPECT_EQ(Raster_Height(part, 1010, 556), 0);
}

TEST_F(WindowTest, IsLimitedToTheModel) {
  const RasterWindow window = Window_Of(part, 0, 0, 5000, 5000);
  EXPECT_EQ(window.first_col, 0);
  EXPECT_EQ(window.last_col, 39);
  EXPECT_EQ(window.first_row, 0);
  EXPECT_EQ(window.last_row, 29);
}

TEST_F(WindowTest, IsEmptyBesideTheModelAndForNoPlace) {
  EXPECT_TRUE(Window_Of(part, 5000, 510, 5010, 520).Is_Empty());
  EXPECT_TRUE(Window_Of(part, 0, 510, 10, 520).Is_Empty());
  EXPECT_TRUE(Window_Of(part, NAN, 510, 10, 520).Is_Empty());
  Read_Cells_Within(file, Window_Of(part, 5000, 510, 5010, 520), part);
  EXPECT_EQ(Raster_Height(part, 1010, 510), 0);
}

TEST_F(WindowTest, AFileThatIsTooShortLeavesTheRestZero) {
  std::filesystem::resize_file(file.native, 40 * 4 * 2 + 6);  // two rows, one cell and a half
  Read_Cells_Within(file, Window_Of(part, 1000, 500, 1078, 558), part);
  EXPECT_EQ(part.Cells[79], 140);
  EXPECT_EQ(part.Cells[80], 201);
  EXPECT_EQ(part.Cells[81], 0);
}

}  // namespace
}  // namespace sylvomex
