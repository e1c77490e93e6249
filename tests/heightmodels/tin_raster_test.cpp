// SPDX-License-Identifier: MIT
#include "heightmodels/tin_raster.h"

#include <gtest/gtest.h>

#include "heightmodels/tin_support.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

TinModel With_Tiles(TinModel model) {
  model.TileMinX = 1000;
  model.TileMinY = 0;
  model.TileMaxX = 1100;
  model.TileMaxY = 200;
  return model;
}

TinModel Raised(double height) {
  return With_Tiles(
      Tin_Of({{0, 1000, 0, height}, {0, 1010, 0, height}, {0, 1010, 10, height}}, {{0, 1, 2}}));
}

TEST(TinRaster, CoversTheTileBoundsAndOneLineMore) {
  const TinRaster raster = Make_Tin_Raster(Raised(300));
  EXPECT_EQ(raster.columns, 101);
  EXPECT_EQ(raster.rows, 201);
  EXPECT_EQ(raster.heights.size(), 101U * 201);
  EXPECT_EQ(raster.greys.size(), 101U * 201);
}

TEST(TinRaster, WritesTheLatticePointsOfTheTriangle) {
  const TinModel model =
      With_Tiles(Tin_Of({{0, 1000, 0, 300}, {0, 1010, 0, 310}, {0, 1010, 10, 310}}, {{0, 1, 2}}));
  TinRaster raster = Make_Tin_Raster(model);
  Rasterize_Triangle(model.Triangles[0], raster);
  // Lattice points (1000 + c - 0.002, r - 0.001): inside for Y > 0 and Y < X - 1000, that is
  // for r from 1 to c - 1 at the columns c from 2 to 10.
  std::int64_t inside = 0;
  for (int row = 0; row < 201; ++row) {
    for (int col = 0; col < 101; ++col) {
      const auto cell = static_cast<std::size_t>(row * 101 + col);
      const bool belongs = row >= 1 && col <= 10 && row <= col - 1;
      inside += belongs ? 1 : 0;
      // The plane is Z = 300 + X - 1000.
      EXPECT_NEAR(raster.heights[cell], belongs ? 300 + col - 0.002 : 0, 1e-4) << col << " " << row;
      EXPECT_EQ(raster.greys[cell], belongs ? 255 - (200 - col) : 0);
    }
  }
  EXPECT_EQ(raster.cells_written, inside);
  EXPECT_EQ(inside, 45);
}

TEST(TinRaster, HeightsFrom245To500FitTheByte) {
  for (const double height : {245.0, 500.0}) {
    const TinModel model = Raised(height);
    TinRaster raster = Make_Tin_Raster(model);
    Rasterize_Triangle(model.Triangles[0], raster);
    EXPECT_EQ(raster.greys[101 * 1 + 5], height == 500 ? 255 : 0);
  }
  for (const double height : {244.0, 501.0}) {
    const TinModel model = Raised(height);
    TinRaster raster = Make_Tin_Raster(model);
    EXPECT_THROW(Rasterize_Triangle(model.Triangles[0], raster), RunTimeError) << height;
  }
}

TEST(TinRaster, ACellOutsideIsARunTimeError) {
  TinModel model = Raised(300);
  model.TileMaxX = 1005;
  TinRaster raster = Make_Tin_Raster(model);
  EXPECT_THROW(Rasterize_Triangle(model.Triangles[0], raster), RunTimeError);
}

TEST(TinRaster, AVerticalTriangleFillsNothing) {
  TinTriangle t;
  Fill_Tin_Triangle({0, 1000, 1, 300}, {0, 1010, 11, 310}, {0, 1005, 6, 320}, t);
  TinRaster raster = Make_Tin_Raster(Raised(300));
  Rasterize_Triangle(t, raster);
  EXPECT_EQ(raster.cells_written, 0);
}

TEST(TinRaster, BoundsBeyondMemoryAreRejected) {
  TinModel model = Raised(300);
  model.TileMaxX = model.TileMaxY = 6e9;
  EXPECT_THROW(Make_Tin_Raster(model), RunTimeError);
}

TEST(MyfuncFloor, RoundsDown) {
  EXPECT_EQ(MYFUNC_FLOOR(2.9), 2);
  EXPECT_EQ(MYFUNC_FLOOR(-2.1), -3);
}

}  // namespace
}  // namespace sylvomex
