// SPDX-License-Identifier: MIT
#include "surfaces/surface_scan.h"

#include <gtest/gtest.h>

#include "platform/run_time_error.h"
#include "surfaces/noise_triplet.h"

namespace sylvomex {
namespace {

/// A pair search that accepts good scores alone, with heights from 10 m below to 10 m above.
SurfaceSettings Pair(bool follows_surface) {
  SurfaceSettings settings;
  settings.search.window_side = 15;
  settings.search.half_range = 10;
  settings.search.step = 0.5;
  settings.search.acceptance = 0.9;
  settings.follows_surface = follows_surface;
  return settings;
}

const std::vector<FilmPosition> kPlaces{{0.0005, 0.0003}, {0.0007, -0.0002}, {0.001, 0.0001}};

TEST(SurfaceScan, FindsThePlaneAtEveryPlace) {
  const Triplet block;
  const SurfaceSettings settings = Pair(true);
  const SurfaceScan scan =
      Scan_Surface(settings, block[0], block.Moving(settings.search), kPlaces, 4);
  EXPECT_EQ(scan.done, 3);
  EXPECT_EQ(scan.without_texture, 0);
  ASSERT_EQ(scan.accepted.size(), 3U);
  for (std::size_t i = 0; i < kPlaces.size(); ++i) {
    const SurfaceCandidate& found = scan.accepted[i];
    EXPECT_NEAR(found.Z, 0, 3) << i;  // a column of parallax is 5 m
    // On the ray of the place: X = (1000 - Z) x / c.
    EXPECT_NEAR(found.X, (1000 - found.Z) * kPlaces[i].x / 0.1, 1e-6);
    EXPECT_NEAR(found.Y, (1000 - found.Z) * kPlaces[i].y / 0.1, 1e-6);
  }
}

TEST(SurfaceScan, FollowsTheSurfaceWhereItIsToldTo) {
  // From 14 m above the plane a first place whose range ends at 4 m still scores best there; only
  // a centre that moves to it brings the plane's own height within the reach of the next one.
  const Triplet block;
  const auto last_height = [&block](bool follows) {
    SurfaceSettings settings = Pair(follows);
    settings.search.acceptance = -1;
    return Scan_Surface(settings, block[0], block.Moving(settings.search), kPlaces, 12)
        .accepted.back()
        .Z;
  };
  EXPECT_LE(last_height(true), last_height(false));
  EXPECT_GE(last_height(false), 2);  // 12 - 10, never below
}

TEST(SurfaceScan, CountsPlacesWithoutTextureAndDoesNotOpenImagesForThem) {
  Triplet block;
  const Pixels flat(static_cast<std::size_t>(kWidth) * kHeight, 90);
  block[0].raster.bytes = flat;
  const SurfaceSettings settings = Pair(false);
  const SurfaceScan scan =
      Scan_Surface(settings, block[0], block.Moving(settings.search), kPlaces, 0);
  EXPECT_EQ(scan.without_texture, 3);
  EXPECT_TRUE(scan.accepted.empty());
  bool is_opened = false;
  const auto open = [&is_opened] {
    is_opened = true;
    return std::vector<SurfaceImage>{};
  };
  EXPECT_FALSE(Search_At_Place(settings.search, block[0], open, kPlaces[0], 0).has_value());
  EXPECT_FALSE(is_opened);
}

TEST(SurfaceScan, AWindowThatLeavesItsRasterIsAnError) {
  const Triplet block;
  const SurfaceSettings settings = Pair(false);
  EXPECT_THROW(Scan_Surface(settings, block[0], block.Moving(settings.search),
                            std::vector<FilmPosition>{{-0.0044, 0}}, 0),
               RunTimeError);
}

TEST(PlacesInside, KeepTheirOrder) {
  const std::vector<MapPoint> square{{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  const std::vector<FilmPosition> places{{0.9, 0.5}, {2, 2}, {0.1, 0.1}};
  const auto inside = Places_Inside(places, square);
  ASSERT_EQ(inside.size(), 2U);
  EXPECT_EQ(inside[0].x, 0.9);
  EXPECT_EQ(inside[1].x, 0.1);
}

}  // namespace
}  // namespace sylvomex
