// SPDX-License-Identifier: MIT
#include "products/ortho_block.h"

#include <gtest/gtest.h>

#include <vector>

namespace sylvomex {
namespace {

/// A vertical camera 1000 m above ground at 160 m with c = 0.1 m; a pixel is 2 m there, the frame
/// 1000 pixels wide and high.
Camera Camera_At(double X0, double Y0 = 0) {
  ImageRecord image;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 5000;
  image.AffineA0 = image.AffineB0 = 500;
  image.X0 = X0;
  image.Y0 = Y0;
  image.Z0 = 1160;
  return Make_Camera(image);
}

TEST(OrthoTiles, AreAHundredCellsWideAndSmallerAtTheEdges) {
  const OrthoGrid grid{0, 0, 1, 250, 101};
  EXPECT_EQ(Tile_Count(250), 3);
  EXPECT_EQ(Tile_Count(101), 2);
  EXPECT_EQ(Tile_Count(100), 1);
  EXPECT_EQ(Tile_Count(1), 1);
  const OrthoTile first = Tile_At(grid, 0, 0);
  EXPECT_EQ(first.columns, 100);
  EXPECT_EQ(first.rows, 100);
  const OrthoTile last = Tile_At(grid, 2, 1);
  EXPECT_EQ(last.first_col, 200);
  EXPECT_EQ(last.first_row, 100);
  EXPECT_EQ(last.columns, 50);
  EXPECT_EQ(last.rows, 1);
}

TEST(OrthoTiles, AreTestedHalfAPixelInsideTheirLowerLeftCell) {
  const std::vector<Camera> cameras{Camera_At(0)};
  // 0.09 m on the film is 900 m: 898.5 + 1 lies inside, 899.5 + 1 outside, 899 + 1 on the limit.
  EXPECT_TRUE(Serving_Camera(cameras, {898.5, 0, 2, 100, 100}, {0, 0, 100, 100}));
  EXPECT_FALSE(Serving_Camera(cameras, {899.5, 0, 2, 100, 100}, {0, 0, 100, 100}));
  EXPECT_FALSE(Serving_Camera(cameras, {899, 0, 2, 100, 100}, {0, 0, 100, 100}));
  EXPECT_FALSE(Serving_Camera(cameras, {0, -901.5, 2, 100, 100}, {0, 0, 100, 100}));
  // The tile's own corner counts, not the grid's.
  EXPECT_FALSE(Serving_Camera(cameras, {0, 0, 10, 200, 200}, {100, 0, 100, 100}));
  EXPECT_FALSE(Serving_Camera(cameras, {0, 0, 10, 200, 200}, {0, 100, 100, 100}));
}

TEST(OrthoTiles, AreServedByTheFirstCameraInOrder) {
  const std::vector<Camera> cameras{Camera_At(2000), Camera_At(850), Camera_At(0)};
  EXPECT_EQ(Serving_Camera(cameras, {0, 0, 2, 1, 1}, {0, 0, 1, 1}), 1u);
}

TEST(OrthoTiles, HaveNoImageInThePlaneOfAProjectionCentre) {
  ImageRecord level;
  level.PrincipalDistance = 0.1;
  level.Z0 = 160;  // the plane of the test itself
  const std::vector<Camera> cameras{Make_Camera(level)};
  EXPECT_FALSE(Serving_Camera(cameras, {0, 0, 2, 1, 1}, {0, 0, 1, 1}));
}

/// Pixels that are numbered by their bytes.
struct NumberedSource {
  std::vector<std::uint8_t> bytes;
  OrthoSource source;

  explicit NumberedSource(int pixel_bytes, int width = 1000, int height = 1000)
      : bytes(static_cast<std::size_t>(width * height * pixel_bytes)),
        source{Camera_At(0), bytes, static_cast<double>(width), static_cast<double>(height),
               pixel_bytes} {
    for (std::size_t k = 0; k < bytes.size(); ++k) bytes[k] = static_cast<std::uint8_t>(k % 251);
  }
};

RasterModel Flat_Model() {
  RasterModel model;
  model.NCols = model.NRows = 3;
  model.OriginX = model.OriginY = -5000;
  model.CellSize = 5000;
  Dimension_Cells(model);
  for (std::size_t k = 0; k < 9; ++k) model.Cells[k] = 160;
  return model;
}

TEST(OrthoTiles, ReadTheirCellsAtTheCellsOwnPlaces) {
  const NumberedSource numbered(3);
  const RasterModel model = Flat_Model();
  const OrthoGrid grid{-100, 40, 2, 3, 2};
  std::vector<std::uint8_t> cells(4 * 2 * 3, 99);  // a stride of four cells
  Fill_Tile(grid, numbered.source, Heights_As_Told(&model), {0, 0, 3, 2}, cells.data(), 4);
  for (int row = 0; row < 2; ++row) {
    for (int col = 0; col < 3; ++col) {
      const std::size_t byte = static_cast<std::size_t>(((999 - 520 - row) * 1000 + 450 + col) * 3);
      const std::size_t cell = static_cast<std::size_t>(row * 4 + col) * 3;
      for (std::size_t k = 0; k < 3; ++k) EXPECT_EQ(cells[cell + k], (byte + k) % 251);
    }
    EXPECT_EQ(cells[static_cast<std::size_t>(row * 4 + 3) * 3], 99);
  }
}

TEST(OrthoTiles, ReadTheFirstPixelOfAFileAndLeaveCellsOutsideIt) {
  const NumberedSource numbered(3);
  const RasterModel model = Flat_Model();
  // Raw row 0 is row 999, Y = 998; column 0 is X = -1000. West of it the first pixel's neighbour
  // would lie before the file, north of it the row, too.
  std::vector<std::uint8_t> cells(2 * 2 * 3, 99);
  Fill_Tile({-1002, 998, 2, 2, 2}, numbered.source, Heights_As_Told(&model), {0, 0, 2, 2},
            cells.data(), 2);
  EXPECT_EQ(cells[0], 99);  // byte -3
  EXPECT_EQ(cells[3], 0);
  EXPECT_EQ(cells[4], 1);
  EXPECT_EQ(cells[5], 2);
  EXPECT_EQ(cells[9], 99);
  // Raw row 999 is row 0, Y = -1000: one column further than the last pixel lies beyond the end.
  std::vector<std::uint8_t> end(2 * 3, 99);
  Fill_Tile({998, -1000, 2, 2, 1}, numbered.source, Heights_As_Told(&model), {0, 0, 2, 1},
            end.data(), 2);
  EXPECT_EQ(end[0], (1000 * 1000 * 3 - 3) % 251);
  EXPECT_EQ(end[3], 99);
}

TEST(OrthoTiles, GiveGreySourcesThreeEqualBytes) {
  const NumberedSource numbered(1);
  const RasterModel model = Flat_Model();
  std::vector<std::uint8_t> cells(3);
  Fill_Tile({0, 0, 2, 1, 1}, numbered.source, Heights_As_Told(&model), {0, 0, 1, 1}, cells.data(),
            1);
  const int grey = (499 * 1000 + 500) % 251;
  EXPECT_EQ(cells, (std::vector<std::uint8_t>(3, static_cast<std::uint8_t>(grey))));
}

TEST(OrthoHeights, AreReplacedBelowALimitOrAsTold) {
  const OrthoHeights replaced{nullptr, 170};
  EXPECT_EQ(replaced.Replaced(99.9), 170);
  EXPECT_EQ(replaced.Replaced(100.0), 100);
  EXPECT_EQ(replaced.Without_Model(), 170);
  EXPECT_EQ(Heights_As_Told(nullptr).Without_Model(), -99);
  EXPECT_EQ(Heights_As_Told(nullptr).Replaced(0), 0);
}

}  // namespace
}  // namespace sylvomex
