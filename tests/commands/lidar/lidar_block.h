// SPDX-License-Identifier: MIT
// A block with two invented cameras and the drives that the lidar commands use. The ground model is
// flat at 100 m over 2516400 to 2516500 east, 6857000 to 6857100 north, which is tile 064_070 of
// 2006 and 2007 and tile 024_020 of 2004; the solution lies in its middle.
#pragma once

#include <string>
#include <vector>

#include "support/failure_of.h"
#include "support/lidar_files.h"
#include "support/synthetic_block.h"

namespace sylvomex {

struct LidarBlock : SyntheticBlock {
  static constexpr double kX = 2516450, kY = 6857050, kGround = 100;

  LidarBlock() {
    Add_Camera(kX, kY, 1100);
    Add_Camera(kX - 100, kY + 20, 1100);
    w.Solution3D = {kX, kY, 110};
    folder.Write("c/data/JetColorMAP.csv", Test_Colour_Map());
    for (const std::string year : {"2004", "2006", "2007"}) {
      folder.Write("c/data/als" + year + "_path.hdr", "c:\\als" + year + "\\\n");
      folder.Make_Folder("c/als" + year);
    }
    folder.Make_Folder("d/data/laser");
    folder.Make_Folder("e/rovik");
    folder.Make_Folder("c/temp");
  }

  void Load_Flat_Ground() {
    RasterModel& dem = w.RasterDem;
    dem.NCols = dem.NRows = 102;
    dem.OriginX = 2516400;
    dem.OriginY = 6857000;
    dem.CellSize = 1;
    Dimension_Cells(dem);
    for (float& height : dem.Cells.All()) height = kGround;
    w.RasterDemLoaded = true;
  }

  void Write_Tile(const std::string& year, const std::vector<TestPulse>& pulses) {
    folder.Write("c/als" + year + "/064_070.bin", Counted_Bytes(pulses));
  }

  /// The colour in a row of Test_Colour_Map.
  static Colour Of_Row(int row) {
    return {static_cast<std::uint8_t>(row), static_cast<std::uint8_t>(100 + row),
            static_cast<std::uint8_t>(200 - row)};
  }

  void Expect_Point(int image, std::size_t mark, const Point3D& point, int colour_row, int width) {
    ASSERT_GT(Marks(image).size(), mark);
    const Mark& drawn = Marks(image)[mark];
    const PanePosition at = Pane_Of(image, point);
    EXPECT_EQ(drawn.kind, Mark::Kind::Point);
    EXPECT_NEAR(drawn.x1, at.px - 1, 1e-6);
    EXPECT_NEAR(drawn.y1, at.py - 1, 1e-6);
    EXPECT_EQ(drawn.colour, Of_Row(colour_row));
    EXPECT_EQ(drawn.width, width);
  }
};

}  // namespace sylvomex
