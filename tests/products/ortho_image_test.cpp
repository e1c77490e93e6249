// SPDX-License-Identifier: MIT
// Orthoimages held against a plain loop over the cells in the order of their reading.
#include "products/ortho_image.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "platform/work_meter.h"
#include "support/failure_of.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// A vertical camera 1000 m above a plane at 0, c = 0.1 m, over the middle of a frame of
/// width x height pixels of 10 micrometres, 0.1 m on the plane.
Camera Vertical(int width, int height) {
  ImageRecord image;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 1e5;
  image.AffineA0 = width / 2;
  image.AffineB0 = height / 2;
  image.Z0 = 1000;
  return Make_Camera(image);
}

Bytes Random_Bytes(std::size_t count) {
  std::mt19937 random(11);
  Bytes bytes(count);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

RasterModel Model(int columns, int rows, double cell, double origin_X, double origin_Y) {
  RasterModel model;
  model.OriginX = origin_X;
  model.OriginY = origin_Y;
  model.CellSize = cell;
  model.NCols = columns;
  model.NRows = rows;
  Dimension_Cells(model);
  return model;
}

/// The definition, cell after cell; std::nearbyint rounds half to even.
Bytes Plain_Ortho(const OrthoGrid& grid, const OrthoSource& source, const OrthoHeights& heights) {
  const auto bytes = static_cast<std::size_t>(source.pixel_bytes);
  Bytes cells(grid.Cells() * bytes);
  Bytes last(bytes);
  for (int c = 0; c < grid.columns; ++c) {
    for (int r = 0; r < grid.rows; ++r) {
      const double X = grid.X0 + c * grid.pixel + grid.pixel;
      const double Y = grid.Y0 + r * grid.pixel + grid.pixel;
      double Z = heights.model == nullptr ? -99 : Raster_Height(*heights.model, X, Y);
      if (Z < 100) Z = heights.elsewhere;
      const PixelPosition at = Object_To_Pixel(source.camera, {X, Y, Z});
      const double position = std::nearbyint((source.sub_height - 1 - std::nearbyint(at.row)) *
                                             source.sub_width * source.pixel_bytes) +
                              std::nearbyint(at.col) * source.pixel_bytes;
      const std::size_t cell = (static_cast<std::size_t>(r) * grid.columns + c) * bytes;
      if (position < 1) continue;
      if (position + source.pixel_bytes <= static_cast<double>(source.bytes.size())) {
        for (std::size_t k = 0; k < bytes; ++k) {
          last[k] = source.bytes[static_cast<std::size_t>(position) + k];
        }
      }
      std::copy(last.begin(), last.end(), cells.begin() + static_cast<std::ptrdiff_t>(cell));
    }
  }
  return cells;
}

Bytes Ortho(const OrthoGrid& grid, const OrthoSource& source, const OrthoHeights& heights, int slab,
            int threads) {
  Bytes cells(grid.Cells() * static_cast<std::size_t>(source.pixel_bytes), 99);
  LastPixel last{};
  for (int first = 0; first < grid.columns; first += slab) {
    Fill_Ortho_Columns(grid, source, heights, first, std::min(grid.columns, first + slab), cells,
                       last, threads);
  }
  return cells;
}

class OrthoImages : public OnEveryVectorUnit {};

TEST_F(OrthoImages, AreThePlainLoopInEverySlabOnOneThreadAndMany) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> height(95, 140);
  RasterModel model = Model(40, 35, 1.0, -20, -15);
  for (std::size_t k = 0; k < 40 * 35; ++k) model.Cells[k] = static_cast<float>(height(random));
  for (const int pixel_bytes : {1, 3}) {
    const Bytes bytes = Random_Bytes(static_cast<std::size_t>(300 * 200 * pixel_bytes));
    OrthoSource source{Vertical(300, 200), bytes, 300, 200, pixel_bytes};
    source.camera.m = Build_Rotation_Matrix(0.002, -0.003, 0.4);
    // Larger than the image on every side, so that black and repeated pixels occur.
    const OrthoGrid grid = Make_Ortho_Grid(-20.3, -14.9, 43, 31, 0.21);
    for (const RasterModel* raster :
         {static_cast<const RasterModel*>(&model), static_cast<const RasterModel*>(nullptr)}) {
      const OrthoHeights heights{raster, 120};
      const Bytes plain = Plain_Ortho(grid, source, heights);
      Run([&] {
        EXPECT_EQ(Ortho(grid, source, heights, 64, 0), plain);
        EXPECT_EQ(Ortho(grid, source, heights, 7, 1), plain);
      });
    }
  }
}

TEST(OrthoImage, EachCellIsReadOnePixelFurtherEastAndNorth) {
  // Ground pixels of 0.1 m at Z = 0, but Z = 0 counts as outside: 120 m puts the camera 880 m
  // above, 0.088 m a pixel. Cell (0, 0) of a grid at (0, 0) is read at (0.88, 0.88): ten pixels
  // right of and ten above the centre (150, 100), which is raw row 199 - 110.
  const Bytes bytes = Random_Bytes(300 * 200);
  const OrthoSource source{Vertical(300, 200), bytes, 300, 200, 1};
  const Bytes cells = Ortho({0, 0, 0.88, 1, 1}, source, {nullptr, 120}, 1, 1);
  EXPECT_EQ(cells[0], bytes[(199 - 110) * 300 + 160]);
}

TEST(OrthoImage, GroundBelow100IsReplacedAnd100IsKept) {
  const OrthoHeights heights{nullptr, 160};
  EXPECT_EQ(heights.Replaced(99.9), 160);
  EXPECT_EQ(heights.Replaced(100.0), 100);
  EXPECT_EQ(heights.Replaced(0), 160);
  EXPECT_EQ(heights.Replaced(-99), 160);
}

TEST(OrthoImage, ACellAboveTheTopOfTheSourceIsBlack) {
  const Bytes bytes(300 * 200, 200);
  const OrthoSource source{Vertical(300, 200), bytes, 300, 200, 1};
  // 100 pixels of 0.088 m reach the top edge; 30 m lie far above it.
  EXPECT_EQ(Ortho({0, 30, 0.5, 1, 1}, source, {nullptr, 120}, 1, 1), (Bytes{0}));
}

TEST(OrthoImage, BytePositionZeroIsBlackAndOneIsRead) {
  // Position 0 is the upper left pixel, position 1 its right neighbour.
  Bytes bytes(300 * 200, 200);
  const OrthoSource source{Vertical(300, 200), bytes, 300, 200, 1};
  EXPECT_EQ(Byte_Position(source, {0, 199}), 0);
  EXPECT_EQ(Byte_Position(source, {1, 199}), 1);
  const auto cell_at = [&](double col, double row) {
    const double ground = 0.088;
    return Ortho({(col - 150) * ground - 1, (row - 100) * ground - 1, 1, 1, 1}, source,
                 {nullptr, 120}, 1, 1)[0];
  };
  EXPECT_EQ(cell_at(0, 199), 0);
  EXPECT_EQ(cell_at(1, 199), 200);
}

TEST(OrthoImage, PastTheEndOfTheSourceTheLastPixelReadIsRepeatedAlsoAfterABlackCell) {
  const Bytes bytes = Random_Bytes(300 * 200);
  const OrthoSource source{Vertical(300, 200), bytes, 300, 200, 1};
  // Column 0 from the south: below the image (nothing read yet: 0), inside, above (black).
  // Column 1 begins below the image again and repeats the pixel read in column 0.
  const OrthoGrid grid{-20, -40, 20, 2, 4};
  const Bytes cells = Ortho(grid, source, {nullptr, 120}, 1, 1);
  EXPECT_EQ(cells, Plain_Ortho(grid, source, {nullptr, 120}));
  const std::uint8_t inside = bytes[static_cast<std::size_t>(
      Byte_Position(source, Object_To_Pixel(source.camera, {0, 0, 120})))];
  EXPECT_EQ(cells[0], 0);       // column 0, row 0: Y = -20
  EXPECT_EQ(cells[2], inside);  // column 0, row 1: Y = 0
  EXPECT_EQ(cells[4], 0);       // column 0, row 2: Y = 20, black
  EXPECT_EQ(cells[1], inside);  // column 1, row 0: past the end
}

TEST(OrthoImage, AColumnOutsideTheRasterLeadsIntoTheNextRow) {
  const Bytes bytes = Random_Bytes(300 * 200);
  const OrthoSource source{Vertical(300, 200), bytes, 300, 200, 1};
  EXPECT_EQ(Byte_Position(source, {300, 150}), Byte_Position(source, {0, 149}));
}

TEST(OrthoImage, AFractionalWidthRoundsTheRowsStart) {
  const Bytes bytes(10);
  const OrthoSource source{Vertical(300, 200), bytes, 10.25, 4, 1};
  // Row 1 from the bottom is two rows down: 2 x 10.25 = 20.5 to 20.
  EXPECT_EQ(Byte_Position(source, {3, 1}), 23);
}

TEST(OrthoImage, APointInThePlaneOfTheProjectionCentreTakesItsPlainPosition) {
  const Bytes bytes = Random_Bytes(300 * 200);
  const OrthoSource source{Vertical(300, 200), bytes, 300, 200, 1};
  const OrthoGrid grid{0, 0, 1, 3, 3};
  const OrthoHeights heights{nullptr, 1000};
  EXPECT_EQ(Ortho(grid, source, heights, 2, 1), Plain_Ortho(grid, source, heights));
}

TEST(OrthoImage, WithoutAPrincipalDistanceEveryCellIsReadOneMetreLeftOnTheFilm) {
  // x = -1, y = 0 on the film: column -10 + 150 and row 100, raw row 199 - 100.
  const Bytes bytes = Random_Bytes(300 * 200);
  OrthoSource source{Vertical(300, 200), bytes, 300, 200, 1};
  source.camera.c = 0;
  source.camera.A1 = 10;
  const Bytes cells = Ortho({0, 0, 1, 3, 3}, source, {nullptr, 120}, 2, 1);
  EXPECT_EQ(cells, Bytes(9, bytes[(199 - 100) * 300 + 140]));
}

/// Whether a watcher that cancels at the first step of the calling thread ends the orthoimage of a
/// grid of 1 m, 120 m above the plane, at Y0. A source of 300 x 200 pixels at 0.088 m.
bool Is_Ended_Between_Tasks(double Y0, std::size_t source_bytes) {
  const Bytes bytes(source_bytes, 200);
  const OrthoSource source{Vertical(300, 200), bytes, 300, 200, 1};
  CancelAfter cancel(1);
  const WatchedWork watched(&cancel);
  try {
    Ortho({0, Y0, 1, 1, 200}, source, {nullptr, 120}, 1, 1);
  } catch (const Cancelled&) {
    return true;
  }
  return false;
}

TEST(OrthoImage, TheSearchForTheLastPixelAndItsRepeatingCanBeCancelled) {
  // From Y = 0 on some cells are read at the bottom and the others are black.
  EXPECT_TRUE(Is_Ended_Between_Tasks(0, 300 * 200));
  // Without the source's last rows the cells from Y = -100 on lie beyond its end.
  EXPECT_TRUE(Is_Ended_Between_Tasks(-100, 300 * 150));
}

TEST(OrthoImage, TooLittleRoomIsRejected) {
  const Bytes bytes(300 * 200);
  const OrthoSource source{Vertical(300, 200), bytes, 300, 200, 3};
  Bytes cells(3 * 11);
  LastPixel last{};
  EXPECT_NE(Failure_Of([&] {
              Fill_Ortho_Columns({0, 0, 1, 3, 4}, source, {nullptr, 120}, 0, 3, cells, last);
            }),
            "no failure");
}

}  // namespace
}  // namespace sylvomex
