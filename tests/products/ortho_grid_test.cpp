// SPDX-License-Identifier: MIT
#include "products/ortho_grid.h"

#include <gtest/gtest.h>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

TEST(OrthoGrid, HasOneCellMoreThanStepsInEachAxis) {
  const OrthoGrid grid = Make_Ortho_Grid(100, 200, 50, 30.4, 0.5);
  EXPECT_EQ(grid.columns, 101);
  EXPECT_EQ(grid.rows, 62);  // 60.8 steps
  EXPECT_EQ(grid.Cells(), 6262u);
}

TEST(OrthoGrid, AnExtentOfZeroGivesOneColumnOrRow) {
  const OrthoGrid grid = Make_Ortho_Grid(0, 0, 0, 10, 1);
  EXPECT_EQ(grid.columns, 1);
  EXPECT_EQ(grid.rows, 11);
  EXPECT_EQ(Make_Ortho_Grid(0, 0, 10, 0, 1).rows, 1);
}

TEST(OrthoGrid, HalfAStepRoundsToTheEvenCount) {
  EXPECT_EQ(Make_Ortho_Grid(0, 0, 2.5, 3.5, 1).columns, 3);
  EXPECT_EQ(Make_Ortho_Grid(0, 0, 2.5, 3.5, 1).rows, 5);
}

TEST(OrthoGrid, ANegativeExtentIsNamed) {
  EXPECT_NE(Failure_Of([] { Make_Ortho_Grid(0, 0, -7, 10, 1); }).find("X-extent -7 m"),
            std::string::npos);
  EXPECT_NE(Failure_Of([] { Make_Ortho_Grid(0, 0, 7, -10, 1); }).find("Y-extent -10 m"),
            std::string::npos);
}

TEST(OrthoGrid, APixelOfZeroOrTooManyCellsIsAFailure) {
  EXPECT_NE(Failure_Of([] { Make_Ortho_Grid(0, 0, 10, 10, 0); }).find("pixel size"),
            std::string::npos);
  EXPECT_NE(Failure_Of([] { Make_Ortho_Grid(0, 0, 1e9, 10, 0.1); }).find("Overflow"),
            std::string::npos);
}

}  // namespace
}  // namespace sylvomex
