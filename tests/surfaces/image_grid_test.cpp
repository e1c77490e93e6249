// SPDX-License-Identifier: MIT
#include "surfaces/image_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

// Powers of two, so that the sums of the loops are exact.
constexpr double kScale = 1024;

std::vector<double> Xs(const std::vector<FilmPosition>& places) {
  std::vector<double> values;
  for (const FilmPosition& place : places) values.push_back(place.x * kScale);
  return values;
}

std::vector<double> Ys(const std::vector<FilmPosition>& places) {
  std::vector<double> values;
  for (const FilmPosition& place : places) values.push_back(place.y * kScale);
  return values;
}

TEST(ImageGrid, SerpentineStartsDownFromTheFirstCorner) {
  // 4 m x 2 m by 2 m: three columns of two.
  const GridSettings grid{4, 2, 2, Placing::FromStart, true};
  const auto places = Grid_Positions(grid, {16 / kScale, 8 / kScale}, kScale);
  EXPECT_EQ(Xs(places), (std::vector<double>{16, 16, 18, 18, 20, 20}));
  EXPECT_EQ(Ys(places), (std::vector<double>{8, 6, 6, 8, 8, 6}));
}

TEST(ImageGrid, CentredColumnsRunUpwards) {
  const GridSettings grid{4, 2, 2, Placing::Centred, false};
  const auto places = Grid_Positions(grid, {16 / kScale, 8 / kScale}, kScale);
  EXPECT_EQ(Xs(places), (std::vector<double>{14, 14, 16, 16, 18, 18}));
  EXPECT_EQ(Ys(places), (std::vector<double>{7, 9, 7, 9, 7, 9}));
}

TEST(ImageGrid, SpacingThatDoesNotFitEndsBeforeTheLimit) {
  const GridSettings grid{5, 0, 2, Placing::FromStart, true};
  EXPECT_EQ(Xs(Grid_Positions(grid, {0, 0}, kScale)), (std::vector<double>{0, 2, 4}));
}

TEST(ImageGrid, PairAreaIsTwoKilometresBySteps) {
  const auto places = Grid_Positions(kPairSurface.grid, {0, 0}, 16384);
  // 2000 / 20 + 1 columns and rows, but for a last step that rounding may lose.
  EXPECT_GE(places.size(), 100U * 100U);
  EXPECT_LE(places.size(), 101U * 101U);
  EXPECT_NEAR(places.back().x, 2000.0 / 16384, 20.1 / 16384);
}

TEST(ImageGrid, TripletAreaIsHigherThanWide) {
  const auto places = Grid_Positions(kTripletSurface.grid, {0, 0}, 16384);
  EXPECT_NEAR(places.front().x, -100.0 / 16384, 1e-12);
  EXPECT_NEAR(places.front().y, -125.0 / 16384, 1e-12);
  EXPECT_EQ(places.size(), 67U * 84U);  // 200 / 3 and 250 / 3 steps, both ends
}

TEST(ImageGrid, RefusesAStartAboveTheCamera) {
  EXPECT_NE(Failure_Of([] {
              Grid_Positions(kPairSurface.grid, {0, 0}, -3);
            }).find("the start lies above the camera"),
            std::string::npos);
  EXPECT_NE(Failure_Of([] { Grid_Positions(kPairSurface.grid, {0, 0}, 0); }), "no failure");
}

TEST(ImageGrid, RefusesAStartWhereGridLinesFallTogether) {
  for (const GridSettings& grid : {kPairSurface.grid, kTripletSurface.grid}) {
    for (const FilmPosition& start :
         {FilmPosition{1e300, 0}, {0, -1e300}, {1e16, 0}, {std::nan(""), 0}}) {
      EXPECT_NE(Failure_Of([&] {
                  Grid_Positions(grid, start, 6700);
                }).find("the start point lies too far out"),
                std::string::npos);
    }
    EXPECT_FALSE(Grid_Positions(grid, {9, -9}, 6700).empty());
  }
}

}  // namespace
}  // namespace sylvomex
