// SPDX-License-Identifier: MIT
#include "demo/render/stand_cameras.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "demo/render/ray_caster.h"
#include "demo/write/overlay_session.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

const Scene& Site() {
  static const Scene scene = Build_Scene({});
  return scene;
}

std::size_t Site_Tree() { return Overlay_Tree(Site(), Fly_Over(Site())); }

Ray Level_Ray(const Point3D& from, double azimuth_deg, double climb = 0) {
  const double a = azimuth_deg * std::numbers::pi / 180, level = std::sqrt(1 - climb * climb);
  return {from.X, from.Y, from.Z, level * std::sin(a), level * std::cos(a), climb};
}

TEST(StandRay, HorizontalMeetsAStemAtItsSurface) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  const Tree& tree = scene.trees[0];
  const auto hit =
      Cast_Stand_Ray(scene, Level_Ray({tree.X, tree.Y - 10, 152}, 0), 100, Foliage::Closed);
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->kind, SurfaceHit::Kind::Stem);
  EXPECT_NEAR(hit->t, 10 - tree.stem_radius, 1e-9);
  EXPECT_EQ(hit->Z, 152);
  EXPECT_NEAR(hit->normal.y, -1, 1e-9);
}

TEST(StandRay, HorizontalAtCrownHeightMeetsTheCrown) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  const Tree& tree = scene.trees[0];
  const auto hit =
      Cast_Stand_Ray(scene, Level_Ray({tree.X, tree.Y - 10, 167}, 0), 100, Foliage::Closed);
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->kind, SurfaceHit::Kind::Crown);
  EXPECT_NEAR(hit->t, 10 - 1.25, 2e-4);  // half the radius at a quarter of the length
}

TEST(StandRay, HorizontalOverFlatGroundAndUpwardMeetsTheSky) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  const Point3D eye{kForestWest + 20, kForestSouth + 20, 151.6};
  EXPECT_FALSE(Cast_Stand_Ray(scene, Level_Ray(eye, 200), 500, Foliage::Closed));
  EXPECT_FALSE(Cast_Stand_Ray(scene, Level_Ray(eye, 200, 0.3), 500, Foliage::Closed));
}

TEST(StandRay, DownwardMeetsTheGroundAccordingToItsSlope) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  const Point3D eye{kForestWest + 20, kForestSouth + 20, 151.5};
  const auto hit = Cast_Stand_Ray(scene, Level_Ray(eye, 90, -0.1), 500, Foliage::Closed);
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->kind, SurfaceHit::Kind::Ground);
  EXPECT_NEAR(hit->t, 15, 0.02);
}

TEST(StandRay, MeetsRollingGroundAtItsHeightAndNowhereBefore) {
  for (int i = 0; i < 300; ++i) {
    const double X = kForestWest + 10 + (i * 37) % 280, Y = kForestSouth + 10 + (i * 91) % 280;
    const Point3D eye{X, Y, Ground_Height(Site(), X, Y) + 1.6};
    Scene bare = Scene_Of({});
    bare.ground = Site().ground;
    const Ray ray = Level_Ray(eye, 17.0 * i, -0.03);
    const auto hit = Cast_Stand_Ray(bare, ray, 400, Foliage::Closed);
    const double end = hit ? hit->t : 400;
    if (hit) {
      ASSERT_NEAR(hit->Z, ray.z + hit->t * ray.w, 2e-3);
    }
    for (double t = 0; t < end - 0.5; t += 0.5) {
      ASSERT_GT(ray.z + t * ray.w, Ground_Height(bare, ray.x + t * ray.u, ray.y + t * ray.v));
    }
  }
}

TEST(StandRay, FindsTheNearestTreeAsALinearSearchWould) {
  int on_trees = 0;
  for (int i = 0; i < 300; ++i) {
    const double X = kForestWest + 10 + (i * 37) % 280, Y = kForestSouth + 10 + (i * 91) % 280;
    const Point3D eye{X, Y, Ground_Height(Site(), X, Y) + 1.6};
    const Ray ray = Level_Ray(eye, 23.0 * i, 0.05 * (i % 7));
    double nearest = 1e9;
    for (const Tree& tree : Site().trees) {
      if (const auto t = Intersect_Crown(tree, ray, 0, 400)) nearest = std::min(nearest, *t);
      if (const auto t = Intersect_Stem(tree, ray, 0, 400)) nearest = std::min(nearest, *t);
    }
    const auto hit = Cast_Stand_Ray(Site(), ray, 400, Foliage::Closed);
    if (!hit || hit->kind == SurfaceHit::Kind::Ground) {
      ASSERT_GE(nearest, hit ? hit->t : 400);
      continue;
    }
    ASSERT_NEAR(hit->t, nearest, 1e-3);
    ++on_trees;
  }
  EXPECT_GT(on_trees, 100);
}

TEST(AnglesOfView, PutTheTargetInTheMiddleAndTheSkyUp) {
  for (int azimuth = 5; azimuth < 360; azimuth += 20) {
    for (const double climb : {-0.4, 0.0, 0.3}) {
      const Ray axis = Level_Ray({1000, 2000, 50}, azimuth, climb);
      const RotationAngles angles = Angles_Of_View({axis.u, axis.v, axis.w});
      Camera camera;
      camera.c = 0.007;
      camera.centre = {1000, 2000, 50};
      camera.m = Build_Rotation_Matrix(angles.omega, angles.phi, angles.kappa);
      const Point3D target{1000 + 10 * axis.u, 2000 + 10 * axis.v, 50 + 10 * axis.w};
      const FilmPosition middle = Film_Of_Point(camera, target);
      EXPECT_NEAR(middle.x, 0, 1e-12);
      EXPECT_NEAR(middle.y, 0, 1e-12);
      const FilmPosition above = Film_Of_Point(camera, {target.X, target.Y, target.Z + 0.1});
      EXPECT_NEAR(above.x, 0, 1e-12);
      EXPECT_GT(above.y, 0);
      // To the right of the view: azimuth + 90 degrees.
      const Ray right = Level_Ray({}, azimuth + 90);
      const FilmPosition beside =
          Film_Of_Point(camera, {target.X + right.u, target.Y + right.v, target.Z});
      EXPECT_NEAR(beside.x, 0.0007, 1e-9);
      EXPECT_NEAR(beside.y, 0, 1e-12);
    }
  }
}

/// Whether a ring around a point falls inside the frame by the projection d . m1 / d . m3.
bool Ring_Is_In_Frame(const Photograph& photo, const Point3D& centre) {
  const RotationMatrix& m = photo.camera.m;
  const ImageRecord& image = photo.image;
  for (double a = -std::numbers::pi; a <= std::numbers::pi; a += 0.3) {
    const double dX = image.X0 - (centre.X + 0.095 * std::cos(a));
    const double dY = image.Y0 - (centre.Y + 0.095 * std::sin(a));
    const double dZ = image.Z0 - centre.Z;
    const double n = m.m31 * dX + m.m32 * dY + m.m33 * dZ;
    const double x = -image.PrincipalDistance * (m.m11 * dX + m.m12 * dY + m.m13 * dZ) / n;
    const double y = -image.PrincipalDistance * (m.m21 * dX + m.m22 * dY + m.m23 * dZ) / n;
    if (std::abs(x) >= 0.002692 || std::abs(y) >= 0.003589) return false;
  }
  return true;
}

TEST(StandPhotographs, ThreeShowTheStemAtBreastHeightAndTheLastDoesNot) {
  const std::vector<Photograph> photos = Photographs_Around(Site(), Site_Tree());
  const Point3D stem = Breast_Height_Point(Site().trees[Site_Tree()]);
  ASSERT_EQ(photos.size(), 4U);
  for (std::size_t k = 0; k < 4; ++k) {
    const ImageRecord& image = photos[k].image;
    EXPECT_GT(image.PrincipalDistance, 0.006);
    EXPECT_LT(image.PrincipalDistance, 0.008);
    EXPECT_NEAR(image.Z0 - Ground_Height(Site(), image.X0, image.Y0), 1.6, 1e-9);
    EXPECT_EQ(Ring_Is_In_Frame(photos[k], stem), k < 3) << k;
  }
}

TEST(StandPhotographs, TheRayThroughTheProjectedStemMeetsThatTree) {
  const std::size_t tree = Site_Tree();
  const std::vector<Photograph> photos = Photographs_Around(Site(), tree);
  const Point3D stem = Breast_Height_Point(Site().trees[tree]);
  for (std::size_t k = 0; k < 3; ++k) {
    const auto [col, row] = Object_To_Pixel(photos[k].camera, stem);
    ASSERT_TRUE(Is_On_Raw_File(photos[k].image, col, row));
    const auto hit = Cast_Stand_Ray(Site(), Stand_Ray(photos[k], col, row), 100, Foliage::Closed);
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->tree, static_cast<int>(tree));
    EXPECT_NEAR(hit->Z, stem.Z, 0.05) << "on the bark before the axis";
  }
}

TEST(StandPhotographs, TheFrameHasTheSizeOfTheSearchsLimits) {
  const Photograph photo = Photographs_Around(Site(), Site_Tree())[0];
  const RawPixelCentre corner = Centre_Of_Raw_Pixel(photo.image, -0.5, -0.5);
  const auto [x, y] = Pixel_To_Image(photo.camera, {corner.col, corner.row});
  EXPECT_NEAR(x, -0.002692, 1e-9);
  EXPECT_NEAR(y, 0.003589, 3e-6);
}

TEST(StandPhotographs, ShowSkyAboveTheTreesOfAnOpenStand) {
  Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  scene.settings.pixel_scale = 16;
  const std::vector<Photograph> photos = Photographs_Around(scene, 0);
  ASSERT_EQ(photos.size(), 4U);
  const std::vector<std::uint8_t> raw = Render_Stand_Photograph(scene, photos[0]);
  const auto columns = static_cast<std::size_t>(photos[0].image.SubWidth);
  const auto rows = static_cast<std::size_t>(photos[0].image.SubHeight);
  ASSERT_EQ(raw.size(), 3 * columns * rows);
  EXPECT_GT(raw[2], 150);                             // sky in the upper left corner
  EXPECT_LT(raw[3 * columns * (rows - 1) + 2], 140);  // ground in the lower left one
  const std::size_t middle = 3 * (columns * (rows / 2) + columns / 2);
  EXPECT_LT(raw[middle + 2], 150);  // the stem
}

}  // namespace
}  // namespace sylvomex::demo
