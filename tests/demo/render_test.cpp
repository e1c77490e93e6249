// SPDX-License-Identifier: MIT
#include "demo/render/photo_renderer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "demo/render/ray_caster.h"
#include "demo/render/surface_colour.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

/// Reduces the raw file of a photograph to a square around a full-image position.
void Crop_Around(Photograph& photo, double col, double row, int side) {
  photo.image.SubColOrigin = std::floor(col) - side / 2;
  photo.image.SubRowOrigin = std::floor(photo.image.FullHeight - 1 - row) - side / 2;
  photo.image.SubWidth = photo.image.SubHeight = side;
}

PixelPosition Project_Top(const Photograph& photo, const Tree& tree) {
  return Object_To_Pixel(photo.camera, {tree.X, tree.Y, tree.TopZ});
}

SurfaceHit Cast_At(const Scene& scene, const Photograph& photo, double col, double row) {
  const Ray ray = Ray_Through_Pixel(photo, col, row);
  return Cast_Camera_Ray(scene, ray, Ground_Crossing(scene, ray, photo.image.Z0 - 150),
                         Foliage::Frayed);
}

TEST(CameraRay, OfAProjectedTopMeetsTheApex) {
  for (const Species species : {Species::Pine, Species::Spruce, Species::Birch}) {
    const Scene scene = Scene_Of({Tree_At(1, species, 150, 150)});
    for (const Photograph& photo : Fly_Over(scene)) {
      const auto [col, row] = Project_Top(photo, scene.trees[0]);
      const SurfaceHit hit = Cast_At(scene, photo, col, row);
      ASSERT_EQ(hit.tree, 0);
      EXPECT_NEAR(hit.Z, 170, 0.01);
      EXPECT_NEAR(hit.X, scene.trees[0].X, 0.01);
      EXPECT_NEAR(hit.Y, scene.trees[0].Y, 0.01);
    }
  }
}

TEST(CameraRay, MeetsTheGroundBetweenTheTrees) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  const Photograph photo = Fly_Over(scene)[0];
  const auto [col, row] =
      Object_To_Pixel(photo.camera, {kForestWest + 60, kForestSouth + 200, 150});
  const SurfaceHit hit = Cast_At(scene, photo, col, row);
  EXPECT_EQ(hit.kind, SurfaceHit::Kind::Ground);
  EXPECT_NEAR(hit.X, kForestWest + 60, 0.005);
  EXPECT_NEAR(hit.Y, kForestSouth + 200, 0.005);
}

TEST(CameraRay, MeetsRollingGroundAtTheGroundsHeight) {
  const Scene scene = Build_Scene({});
  const Photograph photo = Fly_Over(scene)[3];
  for (double raw = 100; raw < 3600; raw += 333) {
    const RawPixelCentre centre = Centre_Of_Raw_Pixel(photo.image, raw, 0.9 * raw);
    const Ray ray = Ray_Through_Pixel(photo, centre.col, centre.row);
    const double t = Ground_Crossing(scene, ray, 1000);
    EXPECT_NEAR(ray.z - t, Ground_Height(scene, ray.x + t * ray.u, ray.y + t * ray.v), 2e-3);
  }
}

TEST(CameraRay, FindsTheNearestTreeAsALinearSearchWould) {
  const Scene scene = Build_Scene({});
  const Photograph photo = Fly_Over(scene)[0];
  int on_trees = 0;
  for (int i = 0; i < 400; ++i) {
    const RawPixelCentre centre =
        Centre_Of_Raw_Pixel(photo.image, 300 + 7 * i, 400 + (i * 131) % 2800);
    const Ray ray = Ray_Through_Pixel(photo, centre.col, centre.row);
    const double ground_t = Ground_Crossing(scene, ray, 1020);
    double nearest = ground_t;
    for (const Tree& tree : scene.trees) {
      const auto crown = Intersect_Crown(tree, ray, 0, nearest);
      if (crown) nearest = *crown;
      const auto stem = Intersect_Stem(tree, ray, 0, nearest);
      if (stem) nearest = *stem;
    }
    const SurfaceHit hit = Cast_Camera_Ray(scene, ray, ground_t, Foliage::Closed);
    EXPECT_NEAR(hit.t, nearest, 1e-3);
    on_trees += hit.tree >= 0 ? 1 : 0;
  }
  EXPECT_GT(on_trees, 60);
}

TEST(Shadow, FallsOppositeToTheSunAtTheTopsLength) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  const Tree& tree = scene.trees[0];
  int hint = -1;
  // The shadow of a point 15 m up lies 15 / tan 38 = 19.2 m away, towards azimuth 345.
  const double reach = 15 / std::tan(38 * std::numbers::pi / 180),
               away = 345 * std::numbers::pi / 180;
  EXPECT_TRUE(Is_In_Shadow(scene, tree.X + reach * std::sin(away), tree.Y + reach * std::cos(away),
                           150, -1, hint));
  EXPECT_FALSE(Is_In_Shadow(scene, tree.X - reach * std::sin(away), tree.Y - reach * std::cos(away),
                            150, -1, hint));
}

TEST(Shadow, IsTheSameWhateverTreeIsTestedFirst) {
  const Scene scene = Build_Scene({});
  for (int i = 0; i < 500; ++i) {
    const double X = kForestWest + 20 + 0.5 * i, Y = kForestSouth + 20 + (i * 37) % 250;
    const double Z = Ground_Height(scene, X, Y);
    int none = -1;
    const bool shaded = Is_In_Shadow(scene, X, Y, Z, -1, none);
    for (int first = i % 50; first < 900; first += 50) {
      int hint = first;
      ASSERT_EQ(Is_In_Shadow(scene, X, Y, Z, -1, hint), shaded);
    }
  }
}

TEST(SurfaceColour, SunlitGroundIsBrighterThanShadedGround) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  const Tree& tree = scene.trees[0];
  SurfaceHit hit;
  hit.normal = {0, 0, 1};
  hit.X = tree.X + 19.2 * std::sin(345 * std::numbers::pi / 180);
  hit.Y = tree.Y + 19.2 * std::cos(345 * std::numbers::pi / 180);
  hit.Z = 150;
  int hint = -1;
  const Colour3 shaded = Surface_Colour(scene, hit, hint);
  const Scene open = Scene_Of({Tree_At(1, Species::Birch, 20, 20)});
  hint = -1;
  const Colour3 sunlit = Surface_Colour(open, hit, hint);
  EXPECT_GT(sunlit.green, 1.8F * shaded.green);
}

TEST(RenderedPhotograph, ShowsTheTopWhereItProjects) {
  // A spruce top is sharp: the highest crown pixel along the stem's image is the apex.
  const Scene scene = Scene_Of({Tree_At(1, Species::Spruce, 150, 150)});
  const Scene bare = Scene_Of({Tree_At(1, Species::Spruce, 20, 20)});
  Photograph photo = Fly_Over(scene)[4];  // from the north, where the shadow falls
  const auto [col, row] = Project_Top(photo, scene.trees[0]);
  const auto [base_col, base_row] =
      Object_To_Pixel(photo.camera, {scene.trees[0].X, scene.trees[0].Y, 160});
  Crop_Around(photo, col, row, 61);
  const auto with_tree = Render_Photograph(scene, photo), without = Render_Photograph(bare, photo);
  const double length = std::hypot(col - base_col, row - base_row);
  const double along_col = (col - base_col) / length, along_row = (row - base_row) / length;
  double farthest = -1e9;
  for (int r = 0; r < 61; ++r) {
    for (int c = 0; c < 61; ++c) {
      const auto at = static_cast<std::size_t>(3 * (61 * r + c) + 1);
      if (std::abs(with_tree[at] - without[at]) < 8) continue;
      const RawPixelCentre centre = Centre_Of_Raw_Pixel(photo.image, c, r);
      const double dc = centre.col - col, dr = centre.row - row;
      if (std::abs(dc * along_row - dr * along_col) > 3) continue;  // away from the stem's line
      farthest = std::max(farthest, dc * along_col + dr * along_row);
    }
  }
  EXPECT_NEAR(farthest, 0, 2.0) << "pixels beyond the projected top";
}

TEST(RenderedPhotograph, HasSunlitAndShadedCrownSides) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  Photograph photo = Fly_Over(scene)[1];
  const auto mean_green = [&](double dx, double dy) {
    const Tree& tree = scene.trees[0];
    const double Z = tree.TopZ - Crown_Depth_At(tree, std::hypot(dx, dy)).value();
    const auto [col, row] = Object_To_Pixel(photo.camera, {tree.X + dx, tree.Y + dy, Z});
    Crop_Around(photo, col, row, 7);
    const auto raw = Render_Photograph(scene, photo);
    double sum = 0;
    for (std::size_t i = 1; i < raw.size(); i += 3) sum += raw[i];
    return sum / 49;
  };
  EXPECT_GT(mean_green(0.2, -0.8), 1.4 * mean_green(-0.2, 0.8)) << "south against north side";
}

TEST(RenderedPhotograph, NoiseHasTheRequestedDeviation) {
  Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  Photograph photo = Fly_Over(scene)[5];
  Crop_Around(photo, 7650, 7650, 120);
  const auto clean = Render_Photograph(scene, photo);
  scene.settings.noise_sigma = 5;
  const auto noisy = Render_Photograph(scene, photo);
  double squares = 0, sum = 0;
  for (std::size_t i = 0; i < clean.size(); ++i) {
    const double difference = noisy[i] - clean[i];
    sum += difference;
    squares += difference * difference;
  }
  const auto n = static_cast<double>(clean.size());
  EXPECT_EQ(clean.size(), 14400U);
  EXPECT_NEAR(sum / n, 0, 0.2);
  EXPECT_NEAR(std::sqrt(squares / n), 5, 0.2);
}

TEST(RenderedPhotograph, IsTheSameOnOneThreadAndOnTwo) {
  SiteSettings settings;
  settings.pixel_scale = 12;
  settings.threads = 1;
  const Scene one = Build_Scene(settings);
  settings.threads = 2;
  const Scene two = Build_Scene(settings);
  for (const std::size_t k : {0U, 5U}) {
    EXPECT_EQ(Render_Photograph(one, Fly_Over(one)[k]), Render_Photograph(two, Fly_Over(two)[k]));
  }
}

TEST(RenderedPhotograph, AWiderRawFileShowsTheSamePixelsAroundTheForest) {
  SiteSettings settings;
  settings.pixel_scale = 12;
  const Scene narrow = Build_Scene(settings);
  settings.margin = 60;
  const Scene wide = Build_Scene(settings);
  const Photograph inner = Fly_Over(narrow)[5], outer = Fly_Over(wide)[5];
  const std::vector<std::uint8_t> few = Render_Photograph(narrow, inner);
  const std::vector<std::uint8_t> many = Render_Photograph(wide, outer);
  const auto columns = static_cast<std::size_t>(inner.image.SubWidth);
  const auto rows = static_cast<std::size_t>(inner.image.SubHeight);
  const auto left = static_cast<std::size_t>(inner.image.SubColOrigin - outer.image.SubColOrigin);
  const auto above = static_cast<std::size_t>(inner.image.SubRowOrigin - outer.image.SubRowOrigin);
  ASSERT_GT(left, 20U);
  ASSERT_GT(above, 20U);
  const auto wide_columns = static_cast<std::size_t>(outer.image.SubWidth);
  std::size_t unlike = 0;
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t col = 0; col < columns; ++col) {
      unlike += few[row * columns + col] != many[(above + row) * wide_columns + left + col];
    }
  }
  EXPECT_EQ(unlike, 0U);
}

}  // namespace
}  // namespace sylvomex::demo
