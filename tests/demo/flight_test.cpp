// SPDX-License-Identifier: MIT
#include "demo/scene/flight.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "demo/write/truth.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

const Scene& Site() {
  static const Scene scene = Build_Scene({});
  return scene;
}

const std::vector<Photograph>& Photos() {
  static const std::vector<Photograph> photos = Fly_Over(Site());
  return photos;
}

using Rows3 = std::array<std::array<double, 3>, 3>;

Rows3 Product(const Rows3& a, const Rows3& b) {
  Rows3 c{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      for (std::size_t k = 0; k < 3; ++k) c[i][j] += a[i][k] * b[k][j];
    }
  }
  return c;
}

/// Rz(kappa) Ry(phi) Rx(omega); each rotates object axes towards camera axes.
Rows3 Rotation_By_Hand(const ImageRecord& image) {
  const double w = image.Omega, p = image.Phi, k = image.Kappa;
  const Rows3 rx{{{1, 0, 0}, {0, std::cos(w), std::sin(w)}, {0, -std::sin(w), std::cos(w)}}};
  const Rows3 ry{{{std::cos(p), 0, -std::sin(p)}, {0, 1, 0}, {std::sin(p), 0, std::cos(p)}}};
  const Rows3 rz{{{std::cos(k), std::sin(k), 0}, {-std::sin(k), std::cos(k), 0}, {0, 0, 1}}};
  return Product(rz, Product(ry, rx));
}

TEST(Flight, HasFiveColourAndOneGreyFrameInTwoOppositeStrips) {
  ASSERT_EQ(Photos().size(), 6U);
  int colour = 0, backwards = 0;
  for (const Photograph& photo : Photos()) {
    colour += photo.image.ColorFlag;
    backwards += std::cos(photo.image.Kappa) < 0 ? 1 : 0;
  }
  EXPECT_EQ(colour, 5);
  EXPECT_EQ(backwards, 3);
}

TEST(Flight, RawFilesArePartsOfTheFramesAndFitThePaneArithmetic) {
  double bytes = 0;
  for (const Photograph& photo : Photos()) {
    const ImageRecord& image = photo.image;
    EXPECT_EQ(image.FullWidth, 17400);
    EXPECT_EQ(image.FullHeight, 17400);
    EXPECT_GT(image.SubColOrigin, 0);
    EXPECT_GT(image.SubRowOrigin, 0);
    EXPECT_LE(image.SubColOrigin + image.SubWidth, image.FullWidth);
    EXPECT_LE(image.SubRowOrigin + image.SubHeight, image.FullHeight);
    EXPECT_EQ(image.SubWidth, std::floor(image.SubWidth));
    EXPECT_EQ(image.BandCount, 0);
    bytes += image.SubWidth * image.SubHeight * (image.ColorFlag == 1 ? 3 : 1);
  }
  EXPECT_LT(bytes, 250e6);
}

TEST(Flight, EveryTreeIsOnAtLeastFiveRawFiles) {
  for (std::size_t i = 0; i < Site().trees.size(); ++i) {
    const Tree& tree = Site().trees[i];
    int on = 0;
    for (const Photograph& photo : Photos()) {
      const auto [col, row] = Object_To_Pixel(photo.camera, {tree.X, tree.Y, tree.TopZ});
      on += Is_On_Raw_File(photo.image, col, row) ? 1 : 0;
    }
    EXPECT_GE(on, 5) << "tree " << tree.id;
  }
}

TEST(Flight, PixelsAreATenthOfAMetreOnTheGround) {
  for (const Photograph& photo : Photos()) {
    const double scale = (photo.image.Z0 - 160) / photo.image.PrincipalDistance;
    EXPECT_NEAR(scale / photo.image.AffineA1, 0.10, 0.002);
    EXPECT_GT(photo.image.AffineB2, 0);
  }
}

TEST(Flight, PanesStartOnATreeNearTheMiddle) {
  const Tree& tree = Site().trees[Centre_Tree(Site(), 18)];
  EXPECT_LT(std::hypot(tree.X - 2515150, tree.Y - 6860150), 15);
  for (const Photograph& photo : Photos()) {
    const auto [col, row] = Object_To_Pixel(photo.camera, {tree.X, tree.Y, tree.TopZ});
    EXPECT_NEAR(photo.image.StartCol, col - photo.image.SubColOrigin, 0.5);
    EXPECT_NEAR(photo.image.StartRow, 17399 - row - photo.image.SubRowOrigin, 0.5);
  }
}

TEST(Flight, CoarserPixelsShowTheSamePlaces) {
  SiteSettings settings;
  settings.pixel_scale = 4;
  const std::vector<Photograph> coarse = Fly_Over(Build_Scene(settings));
  const Tree& tree = Site().trees[0];
  for (std::size_t k = 0; k < 6; ++k) {
    const Point3D top{tree.X, tree.Y, tree.TopZ};
    const auto [col, row] = Object_To_Pixel(Photos()[k].camera, top);
    const auto [coarse_col, coarse_row] = Object_To_Pixel(coarse[k].camera, top);
    EXPECT_EQ(coarse[k].image.FullHeight, 4350);
    EXPECT_NEAR(coarse_col, col / 4, 1e-6);
    // Top-down positions are divided by the scale; rows count from the bottom.
    EXPECT_NEAR(4349 - coarse_row, (17399 - row) / 4, 1e-6);
  }
}

TEST(RawPixelCentre, LiesHalfAPixelInsideThePixel) {
  ImageRecord image;
  image.FullHeight = 100;
  image.SubColOrigin = 20;
  image.SubRowOrigin = 30;
  const RawPixelCentre centre = Centre_Of_Raw_Pixel(image, 3, 4);
  EXPECT_DOUBLE_EQ(centre.col, 23.5);
  EXPECT_DOUBLE_EQ(centre.row, 99 - 34.5);
}

TEST(IsOnRawFile, HoldsFromTheFirstToThePixelBeforeTheEnd) {
  ImageRecord image;
  image.FullHeight = 100;
  image.SubColOrigin = 20;
  image.SubRowOrigin = 30;
  image.SubWidth = 10;
  image.SubHeight = 10;
  EXPECT_TRUE(Is_On_Raw_File(image, 20, 69));
  EXPECT_FALSE(Is_On_Raw_File(image, 19.9, 69));
  EXPECT_FALSE(Is_On_Raw_File(image, 30, 65));
  EXPECT_FALSE(Is_On_Raw_File(image, 25, 59));
}

TEST(RayThroughPixel, PassesThePointThatProjectsThere) {
  for (const Photograph& photo : Photos()) {
    const ImageRecord& image = photo.image;
    const Rows3 m = Rotation_By_Hand(image);
    const std::array<double, 3> d = {2515123.4 - image.X0, 6860098.7 - image.Y0, 163 - image.Z0};
    std::array<double, 3> camera{};
    for (std::size_t i = 0; i < 3; ++i) {
      camera[i] = m[i][0] * d[0] + m[i][1] * d[1] + m[i][2] * d[2];
    }
    const double x = -image.PrincipalDistance * camera[0] / camera[2];
    const double y = -image.PrincipalDistance * camera[1] / camera[2];
    const double col = image.AffineA1 * x + image.AffineA2 * y + image.AffineA0;
    const double row = image.AffineB1 * x + image.AffineB2 * y + image.AffineB0;
    const Ray ray = Ray_Through_Pixel(photo, col, row);
    const double t = image.Z0 - 163;
    EXPECT_NEAR(ray.x + t * ray.u, 2515123.4, 1e-6);
    EXPECT_NEAR(ray.y + t * ray.v, 6860098.7, 1e-6);
    EXPECT_EQ(ray.w, -1);
  }
}

TEST(TopsOnPhotos, ATallerTreeInTheWayHidesTheTop) {
  Tree low = Tree_At(1, Species::Pine, 150, 150);
  low.TopZ = 160;
  Tree alone = Tree_At(2, Species::Pine, 220, 150);
  alone.TopZ = 160;
  // Photograph 2 looks from about 505 m south of the middle, so this tree stands before the first.
  const Tree screen = Tree_At(3, Species::Pine, 150, 147.8);
  const Scene scene = Scene_Of({low, alone, screen});
  const std::vector<Photograph> photos = Fly_Over(scene);
  EXPECT_FALSE(Tops_On_Photos(scene, photos, 0)[1].visible);
  EXPECT_TRUE(Tops_On_Photos(scene, photos, 0)[4].visible) << "from the north it is open";
  EXPECT_TRUE(Tops_On_Photos(scene, photos, 1)[1].visible);
  EXPECT_TRUE(Tops_On_Photos(scene, photos, 2)[1].visible);
}

TEST(TopsOnPhotos, NearlyAllDominantTopsAreSeenByFivePhotographs) {
  int dominant = 0, seen = 0;
  for (std::size_t i = 0; i < Site().trees.size(); ++i) {
    if (Site().trees[i].Height() < 18) continue;
    int visible = 0;
    for (const TopOnPhoto& top : Tops_On_Photos(Site(), Photos(), i)) visible += top.visible;
    ++dominant;
    seen += visible >= 5 ? 1 : 0;
  }
  EXPECT_GT(seen, 0.95 * dominant);
}

}  // namespace
}  // namespace sylvomex::demo
