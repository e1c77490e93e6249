// SPDX-License-Identifier: MIT
#include "solver/pair_points.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

// Vertical, c = 0.1 m, 1000 m above Z = 0.
Camera Vertical_Image(std::int32_t id, double X0) {
  ImageRecord image;
  image.ImageId = id;
  image.PrincipalDistance = 0.1;
  image.X0 = X0;
  image.Z0 = 1000;
  return Make_Camera(image);
}

FilmPointObservation Seen(const Camera& image, std::int32_t id, const Point3D& p) {
  const double scale = 0.1 / (image.centre.Z - p.Z);
  return {image.image_id, id, scale * (p.X - image.centre.X), scale * p.Y};
}

const Camera kLeft = Vertical_Image(1, 0);
const Camera kRight = Vertical_Image(2, 300);

TEST(PairObservations, ArePointsThatBothImagesSee) {
  const std::vector<GroundPoint> ground{{7, {}}, {8, {}}, {9, {}}};
  const std::vector<FilmPointObservation> film{
      {1, 9, 0.1, 0.2}, {2, 7, 0, 0}, {2, 9, 0.3, 0.4}, {1, 8, 0, 0}, {3, 8, 0, 0}};
  const auto pairs = Observations_Of_Pair(ground, film, 1, 2);
  ASSERT_EQ(pairs.size(), 1U);
  EXPECT_EQ(pairs[0].point, &ground[2]);
  EXPECT_EQ(pairs[0].first_x, 0.1);
  EXPECT_EQ(pairs[0].first_y, 0.2);
  EXPECT_EQ(pairs[0].second_x, 0.3);
  EXPECT_EQ(pairs[0].second_y, 0.4);
}

TEST(PairObservations, OfRepeatedObservationsTheFirstCounts) {
  const std::vector<GroundPoint> ground{{7, {}}};
  const std::vector<FilmPointObservation> film{{1, 7, 0.1, 0}, {1, 7, 0.2, 0}, {2, 7, 0.3, 0}};
  EXPECT_EQ(Observations_Of_Pair(ground, film, 1, 2).at(0).first_x, 0.1);
}

TEST(PairObservations, OnlyTheFirst3600PointsAreUsed) {
  std::vector<GroundPoint> ground(3601, GroundPoint{5, {}});
  ground[3599].point_id = 7;
  ground[3600].point_id = 7;
  const std::vector<FilmPointObservation> film{{1, 7, 0, 0}, {2, 7, 0, 0}};
  const auto pairs = Observations_Of_Pair(ground, film, 1, 2);
  ASSERT_EQ(pairs.size(), 1U);
  EXPECT_EQ(pairs[0].point, &ground[3599]);
}

TEST(PairObservations, OnlyTheFirst311OfAnImageAreSearched) {
  const std::vector<GroundPoint> ground{{311, {}}, {312, {}}};
  std::vector<FilmPointObservation> film;
  for (std::int32_t id = 1; id <= 312; ++id) film.push_back({1, id, 0, 0});
  film.push_back({2, 311, 0, 0});
  film.push_back({2, 312, 0, 0});
  const auto pairs = Observations_Of_Pair(ground, film, 1, 2);
  ASSERT_EQ(pairs.size(), 1U);
  EXPECT_EQ(pairs[0].point->point_id, 311);
}

TEST(PairIntersection, FindsThePointFromItsOffsetStart) {
  const GroundPoint known{7, {100, 50, 20}};
  const auto first = Seen(kLeft, 7, known.position), second = Seen(kRight, 7, known.position);
  const IntersectionResult result =
      Intersect_Pair(kLeft, kRight, {&known, first.x, first.y, second.x, second.y}, {});
  EXPECT_FALSE(result.singular);
  EXPECT_NEAR(result.point.X, 100, 1e-6);
  EXPECT_NEAR(result.point.Y, 50, 1e-6);
  EXPECT_NEAR(result.point.Z, 20, 1e-6);
  EXPECT_NEAR(result.rmse_um, 0, 1e-2);
}

TEST(PairIntersection, MakesAtMostTenPasses) {
  const GroundPoint known{7, {100, 50, 20}};
  const auto first = Seen(kLeft, 7, known.position), second = Seen(kRight, 7, known.position);
  const IntersectionSettings never{0, 0, 0, 100};
  EXPECT_EQ(
      Intersect_Pair(kLeft, kRight, {&known, first.x, first.y, second.x, second.y}, never).passes,
      10);
}

// By hand: an error of 2 um in y leaves 1 um in each image, two observations of one degree of
// freedom: RMSE = sqrt(2) um.
TEST(PairIntersection, TheRmseIsInMicrometres) {
  const GroundPoint known{7, {150, 0, 0}};
  const auto first = Seen(kLeft, 7, known.position), second = Seen(kRight, 7, known.position);
  const IntersectionSettings fine{1e-6, 1e-6, 1e-6, 100};
  const IntersectionResult result =
      Intersect_Pair(kLeft, kRight, {&known, first.x, first.y + 2e-6, second.x, second.y}, fine);
  EXPECT_NEAR(result.rmse_um, 1.41421356, 1e-3);
}

TEST(PairIntersection, CamerasWithoutAPrincipalDistanceAreSingular) {
  Camera blind = kLeft;
  blind.c = 0;
  const GroundPoint known{7, {}};
  EXPECT_TRUE(Intersect_Pair(blind, blind, {&known, 0, 0, 0, 0}, {}).singular);
}

}  // namespace
}  // namespace sylvomex
