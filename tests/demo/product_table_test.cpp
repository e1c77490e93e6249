// SPDX-License-Identifier: MIT
#include "demo/table/product_table.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sylvomex::demo {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(ProductTable, ATargetBelongsOneCellSouthWestOfItsPlace) {
  // Cells of 0.5 m from (100, 200): (105, 207.5) is cell (10, 15), so it belongs to (9, 14).
  const OrthoGrid grid{100, 200, 0.5, 40, 30};
  Bytes cells(40 * 30);
  cells[14 * 40 + 9] = 255;
  cells[14 * 40 + 10] = 255;
  cells[15 * 40 + 9] = 255;
  cells[15 * 40 + 10] = 255;
  const TargetErrors errors = Compare_Targets(cells, grid, {{105, 207.5, 0}, {117, 201, 0}});
  ASSERT_EQ(errors.columns.size(), 1u);
  EXPECT_DOUBLE_EQ(errors.columns[0], 0.5);
  EXPECT_DOUBLE_EQ(errors.rows[0], 0.5);
  EXPECT_EQ(errors.missing, 1);
  EXPECT_NE(Table_Text(errors).find("largest 0.500"), std::string::npos);
}

TEST(ProductTable, TopsOfCutOutsAreComparedWithTheSameInFullImages) {
  const CutOutTable table = Compare_Cut_Outs(
      "say full 10 20 30\nSolution3D = 10 20 30.3\nsay full 11 20 30\nSolution3D = 11 20 30\n"
      "say cut 10 20 30\nbeep 1 2\nSolution3D = 10 20.25 30.3\nSolution3D = 99 99 99\n"
      "say cut 12 20 30\nSolution3D = 0 0 0\n");
  EXPECT_EQ(table.tops, 1);
  EXPECT_DOUBLE_EQ(table.largest_difference, 0.25);
  EXPECT_NEAR(table.rms_full, 0.3 / std::sqrt(6.0), 1e-12);
}

TEST(ProductTable, AZoneIsHeldAgainstItsCircle) {
  // A radius of 10 pixels has 314.16 of them.
  Bytes mask(1000);
  std::fill_n(mask.begin(), 314, std::uint8_t{7});
  EXPECT_NEAR(Zone_Excess(mask, 7, 2, 0.2), 100 * (314 - 314.159265) / 314.159265, 1e-6);
}

TEST(ProductTable, CoveredCellsAreThoseThatAreNotBlack) {
  EXPECT_DOUBLE_EQ(Covered_Share(Bytes{0, 0, 0, 0, 0, 1, 9, 9, 9, 0, 0, 0}), 0.5);
}

TEST(ProductTable, AMapHasTheNorthernmostRowFirst) {
  const OrthoGrid grid{100, 200, 0.5, 1, 3};
  const Bytes cells{1, 1, 1, 2, 2, 2, 3, 3, 3};
  EXPECT_EQ(North_Up(cells, grid), (Bytes{3, 3, 3, 2, 2, 2, 1, 1, 1}));
  // Map column 1 and row 3 is cell (0, 0), which shows (100.5, 200.5): X = 0.5 x 1 + 100,
  // Y = (3 - 3) x 0.5 + 200.5.
  EXPECT_EQ(Map_Header_Text("m.raw", grid, 1), "\"m.raw\"\n100\n200.5\n0.5\n0.5\n1\n3\n1\n");
  // In a mosaic it shows (100, 200).
  EXPECT_EQ(Map_Header_Text("m.raw", grid, 0), "\"m.raw\"\n99.5\n200\n0.5\n0.5\n1\n3\n1\n");
}

}  // namespace
}  // namespace sylvomex::demo
