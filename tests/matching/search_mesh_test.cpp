// SPDX-License-Identifier: MIT
#include "matching/search_mesh.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "matching/test_photo.h"

namespace sylvomex {
namespace {

HeightLookup Level(double height) {
  return [height](double, double) { return height; };
}

MeshSettings Settings(double side, double spacing) {
  MeshSettings settings;
  settings.plot_X = 1000;
  settings.plot_Y = 2000;
  settings.side_X = settings.side_Y = side;
  settings.dx = settings.dy = settings.dz = spacing;
  settings.top_factor = 1.15;
  settings.low_factor = 0.6;
  return settings;
}

TEST(SearchMesh, ColumnsRunThroughTheCanopyLayer) {
  // Ground 100, canopy 120: from 100 + 0.6 x 23 = 113.8 up to 123.
  const MeshTable mesh = Build_Mesh(Settings(4, 2), Level(100), Level(120));
  ASSERT_EQ(mesh.size(), 9U * 5);
  for (std::size_t k = 0; k < 5; ++k) {
    EXPECT_EQ(mesh[k].X, 998);
    EXPECT_EQ(mesh[k].Y, 1998);
    EXPECT_NEAR(mesh[k].Z, 113.8 + 2.0 * static_cast<double>(k), 1e-9);
  }
  EXPECT_EQ(mesh[5].X, 998);  // Y runs inside X
  EXPECT_EQ(mesh[5].Y, 2000);
  EXPECT_EQ(mesh[44].X, 1002);
  EXPECT_EQ(mesh[44].Y, 2002);
}

TEST(SearchMesh, FollowsTheCanopyAtEachPosition) {
  const auto canopy = [](double X, double) { return X < 1000 ? 90.0 : 110.0; };
  const MeshTable mesh = Build_Mesh(Settings(4, 2), Level(100), canopy);
  for (const Point3D& point : mesh) EXPECT_GE(point.X, 1000);
  EXPECT_EQ(mesh.size(), 6U * 3);  // 106.9 to 111.5 in steps of 2
}

TEST(SearchMesh, CanopyBelowTheGroundHasNoPoints) {
  EXPECT_TRUE(Build_Mesh(Settings(4, 1), Level(100), Level(99.999)).empty());
}

TEST(SearchMesh, CanopyOnTheGroundHasOnePoint) {
  const MeshTable mesh = Build_Mesh(Settings(4, 2), Level(100), Level(100));
  ASSERT_EQ(mesh.size(), 9U);
  EXPECT_EQ(mesh[0].Z, 100);
}

TEST(SearchMesh, AnUpperFactorBelowTheLowerOneIsStillALayer) {
  // Top 100 + 0.5 x 20 = 110, bottom 100 + 0.6 x 10 = 106.
  MeshSettings settings = Settings(0, 1);
  settings.top_factor = 0.5;
  const MeshTable mesh = Build_Mesh(settings, Level(100), Level(120));
  ASSERT_EQ(mesh.size(), 5U);
  EXPECT_NEAR(mesh[0].Z, 106, 1e-9);
  EXPECT_NEAR(mesh[4].Z, 110, 1e-9);
}

TEST(SearchMesh, ASpacingGreaterThanTheSideGivesOnePosition) {
  const MeshTable mesh = Build_Mesh(Settings(4, 30), Level(100), Level(120));
  ASSERT_EQ(mesh.size(), 1U);
  EXPECT_EQ(mesh[0].X, 998);
  EXPECT_EQ(mesh[0].Y, 1998);
}

TEST(SearchMesh, TheFarEndIsReachedAlthoughTheSpacingIsNotABinaryFraction) {
  MeshSettings settings = Settings(1, 0.1);
  settings.top_factor = 1;
  settings.low_factor = 0;
  const MeshTable mesh = Build_Mesh(settings, Level(0.1), Level(0.4));
  ASSERT_EQ(mesh.size(), 11U * 11 * 4);  // Z 0.1, 0.2, 0.3, 0.4
  EXPECT_NEAR(mesh.back().X, 1000.5, 1e-9);
  EXPECT_NEAR(mesh.back().Y, 2000.5, 1e-9);
  EXPECT_NEAR(mesh.back().Z, 0.4, 1e-12);
}

TEST(SearchMesh, RotatesAboutThePlotFromXTowardsY) {
  MeshSettings settings = Settings(4, 4);
  settings.rotation = std::numbers::pi / 6;
  const MeshTable mesh = Build_Mesh(settings, Level(100), Level(100));
  ASSERT_EQ(mesh.size(), 4U);
  // u = 2, v = -2, the third column.
  const double cos_q = std::sqrt(3.0) / 2, sin_q = 0.5;
  EXPECT_NEAR(mesh[2].X, 1000 + 2 * cos_q + 2 * sin_q, 1e-9);
  EXPECT_NEAR(mesh[2].Y, 2000 - 2 * cos_q + 2 * sin_q, 1e-9);
}

TEST(SearchMesh, ASpacingThatIsNotGreaterThanZeroIsNamed) {
  for (const double spacing : {0.0, -0.5, std::numeric_limits<double>::quiet_NaN()}) {
    const std::string text = Failure_Of(Failure::BadContent, [spacing] {
      Build_Mesh(Settings(4, spacing), Level(100), Level(120));
    });
    EXPECT_NE(text.find("must be above 0"), std::string::npos);
  }
}

TEST(SearchMesh, AMeshThatDoesNotFitReportsItsCount) {
  const std::string columns = Failure_Of(
      Failure::OutOfMemory, [] { Build_Mesh(Settings(52, 0.001), Level(100), Level(120)); });
  EXPECT_NE(columns.find("columns"), std::string::npos);
  const std::string points =
      Failure_Of(Failure::OutOfMemory, [] { Build_Mesh(Settings(0, 0.5), Level(0), Level(1e9)); });
  // 1.15e9 x 0.4 / 0.5 steps, and the first one.
  EXPECT_NE(points.find("920000001 points"), std::string::npos) << points;
}

}  // namespace
}  // namespace sylvomex
