// SPDX-License-Identifier: MIT
#include "products/ortho_index.h"

#include <gtest/gtest.h>

#include <numbers>
#include <vector>

namespace sylvomex {
namespace {

/// 11 x 21 pixels of 2 m on the flat ground, principal point at pixel (5, 10).
ImageRecord Image(double X0, double Y0, double kappa = 0) {
  ImageRecord image;
  image.ImageId = 4711;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 5000;
  image.AffineA0 = 5;
  image.AffineB0 = 10;
  image.FullWidth = 11;
  image.FullHeight = 21;
  image.X0 = X0;
  image.Y0 = Y0;
  image.Z0 = 1160;
  image.Kappa = kappa;
  return image;
}

struct Grids {
  OrthoGrid grid;
  std::vector<float> ids;
  std::vector<std::uint8_t> numbers;

  explicit Grids(const OrthoGrid& cells)
      : grid(cells), ids(cells.Cells()), numbers(cells.Cells()) {}

  void Mark(const ImageRecord& image, std::uint8_t number) {
    const Camera camera = Make_Camera(image);
    Mark_Covered_Cells(grid, image, camera, *Limits_Of_Border(image, camera), number, ids, numbers);
  }
};

TEST(OrthoIndex, LimitsAreThoseOfTheBorderPixels) {
  const ImageRecord image = Image(100, 200);
  const auto limits = Limits_Of_Border(image, Make_Camera(image));
  ASSERT_TRUE(limits);
  EXPECT_NEAR(limits->west, 90, 1e-9);
  EXPECT_NEAR(limits->east, 110, 1e-9);
  EXPECT_NEAR(limits->south, 180, 1e-9);
  EXPECT_NEAR(limits->north, 220, 1e-9);
}

TEST(OrthoIndex, ATurnedImageSpansItsDiagonal) {
  const ImageRecord image = Image(0, 0, std::numbers::pi / 2);
  const auto limits = Limits_Of_Border(image, Make_Camera(image));
  EXPECT_NEAR(limits->east - limits->west, 40, 1e-9);
  EXPECT_NEAR(limits->north - limits->south, 20, 1e-9);
}

TEST(OrthoIndex, OnlyCellsWithinLimitsOfImagesCount) {
  // Two fields of 10 x 20 m, 1 km apart, and cells of 1 m: 11 x 21 of each.
  const GroundLimits a{0, 10, 0, 20}, b{1000, 1010, 1000, 1020};
  const OrthoGrid far_apart = Grid_Over(Around_Both(a, b), 1);
  EXPECT_EQ(Cells_Within(far_apart, std::vector{a, b}), 2 * 11 * 21);
  // Over one another they have no more cells than the grid.
  EXPECT_EQ(Cells_Within(Grid_Over(a, 1), std::vector{a, a, a}), 11 * 21);
}

TEST(OrthoIndex, AnImageThatLooksUpHasNoLimits) {
  ImageRecord image = Image(0, 0);
  image.Omega = std::numbers::pi;
  EXPECT_FALSE(Limits_Of_Border(image, Make_Camera(image)));
}

TEST(OrthoIndex, OfAnImageThatLooksPastTheHorizonTheGroundCounts) {
  ImageRecord image = Image(0, 0);
  image.Omega = std::numbers::pi / 2;  // level, to the north: half of the rows see the ground
  const auto limits = Limits_Of_Border(image, Make_Camera(image));
  ASSERT_TRUE(limits);
  EXPECT_GT(limits->south, 0);
}

TEST(OrthoIndex, AGridBeginsInTheSouthWest) {
  const OrthoGrid grid = Grid_Over({90, 110, 180, 221}, 10);
  EXPECT_EQ(grid.X0, 90);
  EXPECT_EQ(grid.Y0, 180);
  EXPECT_EQ(grid.columns, 3);
  EXPECT_EQ(grid.rows, 5);
  const GroundLimits both = Around_Both({0, 1, 0, 1}, {-1, 0.5, 0.5, 2});
  EXPECT_EQ(both.west, -1);
  EXPECT_EQ(both.east, 1);
  EXPECT_EQ(both.south, 0);
  EXPECT_EQ(both.north, 2);
}

TEST(OrthoIndex, CoveredCellsTakeTheFirstImage) {
  Grids grids({-20, 0, 2, 41, 1});
  grids.Mark(Image(0, 0), 1);   // X -10 to 10, with half a pixel about it
  grids.Mark(Image(15, 0), 2);  // 5 to 25, half a pixel more to the even column
  for (int col = 0; col < 41; ++col) {
    const int X = -20 + 2 * col;
    const int number = X < -10 || X > 26 ? 0 : X <= 10 ? 1 : 2;
    EXPECT_EQ(grids.numbers[static_cast<std::size_t>(col)], number) << X;
    EXPECT_EQ(grids.ids[static_cast<std::size_t>(col)], number == 0 ? 0 : 4711) << X;
  }
}

TEST(OrthoIndex, ATurnedImageCoversNoCornerOfItsLimits) {
  const ImageRecord image = Image(0, 0, std::numbers::pi / 4);
  Grids grids({-24, -24, 1, 49, 49});
  grids.Mark(image, 1);
  EXPECT_EQ(grids.numbers[24 * 49 + 24], 1);
  const auto limits = *Limits_Of_Border(image, Make_Camera(image));
  const auto corner = static_cast<std::size_t>((limits.south + 25) * 49 + limits.west + 25);
  EXPECT_EQ(grids.numbers[corner], 0);
}

TEST(OrthoIndex, AnImageOutsideTheGridMarksNothing) {
  Grids grids({1000, 1000, 2, 5, 5});
  grids.Mark(Image(0, 0), 1);
  EXPECT_EQ(grids.numbers, std::vector<std::uint8_t>(25));
}

TEST(OrthoIndex, NumbersBeginAgainAfter255) {
  EXPECT_EQ(Index_Number(0), 1);
  EXPECT_EQ(Index_Number(254), 255);
  EXPECT_EQ(Index_Number(255), 1);
}

}  // namespace
}  // namespace sylvomex
