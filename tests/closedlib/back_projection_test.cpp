// SPDX-License-Identifier: MIT
#include "closedlib/back_projection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <random>

#include "matching_inputs.h"
#include "platform/run_time_error.h"
#include "solver/patch_projection.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Image 3 of the volume holds values that identify their column and row; every other image holds
/// 9.
const std::vector<double>& Telling_Volume() {
  static const std::vector<double> volume = [] {
    std::vector<double> v(std::size_t{kVolumeImages} * kVolumeSide * kVolumeSide, 9);
    for (std::size_t at = 3, k = 1; at < v.size(); at += kVolumeImages, ++k) {
      v[at] = static_cast<double>(k);
    }
    return v;
  }();
  return volume;
}

float Told(int col, int row) { return static_cast<float>(1 + col + kVolumeSide * row); }

/// A camera 1000 m above the origin looking straight down: c 0.1 m, 10 micrometre pixels, so one
/// pixel is 0.1 m of ground at height 0; the nadir is at pixel (500, 700).
PatchProjection Straight_Down() {
  PatchProjection projection;
  projection.m = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  projection.Z0 = 1000;
  projection.c = 0.1;
  projection.affine = {1e5, 0, 500, 0, 1e5, 700};
  projection.row_origin = 1200;
  return projection;
}

std::vector<float> Project(const PatchProjection& s, const std::vector<Point3D>& mesh,
                           int threads = 1) {
  std::vector<float> scores(mesh.size(), 77);
  MYFUNC_COMPUTEBKPROJ(3, s, mesh, Telling_Volume(), scores, threads);
  return scores;
}

float Project(const PatchProjection& s, const Point3D& point) {
  return Project(s, std::vector<Point3D>{point})[0];
}

TEST(BackProjection, ReadsTheImageColumnAndRowOfThePoint) {
  // 20 m east are 200 pixels right, 10 m north 100 pixels up: full-image (700, 800), patch row
  // 1200 - 800.
  EXPECT_EQ(Project(Straight_Down(), {20, 10, 0}), Told(700, 400));
}

TEST(BackProjection, HeightMovesThePointOutwards) {
  // At 500 m a pixel is 0.05 m.
  EXPECT_EQ(Project(Straight_Down(), {10, 5, 500}), Told(700, 400));
}

TEST(BackProjection, OriginsMoveThePatch) {
  PatchProjection s = Straight_Down();
  s.col_origin = 600;
  s.row_origin = 810;
  EXPECT_EQ(Project(s, {20, 10, 0}), Told(100, 10));
}

TEST(BackProjection, KappaTurnsTheImage) {
  PatchProjection s = Straight_Down();
  s.m = {0, 1, 0, -1, 0, 0, 0, 0, 1};  // by a right angle: x = dY, y = -dX
  EXPECT_EQ(Project(s, {20, 10, 0}), Told(600, 1200 - 500));
}

TEST(BackProjection, TakesTheNearestPixelHalfToEven) {
  PatchProjection s = Straight_Down();
  s.affine = {0, 0, 0, 0, 0, 700};  // every point at one pixel
  const std::pair<double, int> columns[] = {{0.5, 0},  {1.5, 2},       {2.5, 2},
                                            {2.49, 2}, {2.51, 3},      {-0.5, 0},
                                            {-0.4, 0}, {1200.5, 1200}, {1200.4, 1200}};
  for (const auto& [col, nearest] : columns) {
    s.affine[2] = col;
    EXPECT_EQ(Project(s, {1, 2, 3}), Told(nearest, 500)) << col;
  }
  s.affine[2] = 7;
  const std::pair<double, int> rows[] = {{699.5, 500}, {698.5, 502}, {698.4, 502}, {1200.5, 0}};
  for (const auto& [row, nearest] : rows) {
    s.affine[5] = row;
    EXPECT_EQ(Project(s, {1, 2, 3}), Told(7, nearest)) << row;
  }
}

TEST(BackProjection, OutsideThePatchGivesZero) {
  PatchProjection s = Straight_Down();
  s.affine = {0, 0, 0, 0, 0, 700};
  for (const double col : {-0.51, -1.0, 1200.51, 1201.0, 1e12, -1e300, kInfinity, kNan}) {
    s.affine[2] = col;
    EXPECT_EQ(Project(s, {1, 2, 3}), 0) << col;
  }
  s.affine[2] = 0;
  for (const double row : {-0.51, 1200.51, 1e18, -kInfinity, kNan}) {
    s.affine[5] = row;
    EXPECT_EQ(Project(s, {1, 2, 3}), 0) << row;
  }
}

TEST(BackProjection, PointInThePlaneOfTheProjectionCentreGivesZero) {
  EXPECT_EQ(Project(Straight_Down(), {20, 10, 1000}), 0);
  EXPECT_EQ(Project(Straight_Down(), {0, 0, 1000}), 0);
}

TEST(BackProjection, NaNAndInfinitePointsGiveZero) {
  for (const double bad : {kNan, kInfinity, -kInfinity, 1e308}) {
    EXPECT_EQ(Project(Straight_Down(), {bad, 10, 0}), 0) << bad;
    EXPECT_EQ(Project(Straight_Down(), {20, bad, 0}), 0) << bad;
  }
  EXPECT_EQ(Project(Straight_Down(), {20, 10, kNan}), 0);
  EXPECT_EQ(Project(Straight_Down(), {0, 0, kInfinity}), 0);
}

TEST(BackProjection, CameraWithoutPrincipalDistanceGivesZero) {
  PatchProjection s = Straight_Down();
  s.c = 0;
  EXPECT_EQ(Project(s, {20, 10, 0}), 0);
}

TEST(BackProjection, EmptyMeshIsNotAnError) {
  EXPECT_TRUE(Project(Straight_Down(), std::vector<Point3D>{}).empty());
}

TEST(BackProjection, WrongSizesAreRejected) {
  const PatchProjection s = Straight_Down();
  const std::vector<Point3D> mesh(3);
  std::vector<float> scores(3);
  const auto project = [&](int image, std::size_t room, std::size_t volume) {
    MYFUNC_COMPUTEBKPROJ(image, s, mesh, std::span(Telling_Volume()).first(volume),
                         std::span(scores).first(room));
  };
  const std::size_t whole = Telling_Volume().size();
  EXPECT_NO_THROW(project(0, 3, whole));
  EXPECT_THROW(project(9, 3, whole), RunTimeError);
  EXPECT_THROW(project(-1, 3, whole), RunTimeError);
  EXPECT_THROW(project(0, 2, whole), RunTimeError);
  EXPECT_THROW(project(0, 3, whole - 1), RunTimeError);
}

std::vector<Point3D> Random_Mesh(std::size_t count) {
  std::mt19937 random(4);
  std::uniform_real_distribution<double> away(-75, 75);
  std::vector<Point3D> mesh(count);
  for (Point3D& p : mesh) p = {away(random), away(random), away(random) / 3};
  return mesh;
}

constexpr double kOmega = 0.02, kPhi = -0.03, kKappa = 2.1;

/// Rotations about X, Y and Z in sequence, then collinearity, in long double.
std::array<long double, 2> Tilted_Pixel(const PatchProjection& s, const Point3D& p) {
  long double X = p.X - s.X0, Y = p.Y - s.Y0, Z = p.Z - s.Z0;
  const auto turn = [](double angle, long double& a, long double& b) {
    const long double sine = std::sin(static_cast<long double>(angle));
    const long double cosine = std::cos(static_cast<long double>(angle));
    const long double turned = cosine * a + sine * b;
    b = cosine * b - sine * a;
    a = turned;
  };
  turn(kOmega, Y, Z);
  turn(kPhi, Z, X);
  turn(kKappa, X, Y);
  const long double x = -s.c * X / Z, y = -s.c * Y / Z;
  return {s.affine[0] * x + s.affine[1] * y + s.affine[2],
          s.affine[3] * x + s.affine[4] * y + s.affine[5]};
}

PatchProjection Tilted() {
  Camera camera;
  camera.c = 0.1;
  camera.centre = {11, -9, 1003};
  camera.m = Build_Rotation_Matrix(kOmega, kPhi, kKappa);
  camera.A1 = 1e5;
  camera.A2 = 900;
  camera.A0 = 620.3;
  camera.B1 = -700;
  camera.B2 = 1.02e5;
  camera.B0 = 610.7;
  return Make_Patch_Projection(camera, {0, 1200});
}

using BackProjectionUnits = OnEveryVectorUnit;

TEST_F(BackProjectionUnits, TiltedCameraReadsThePixelOfTheRotatedRay) {
  const PatchProjection s = Tilted();
  const std::vector<Point3D> mesh = Random_Mesh(3001);
  Run([&] {
    const std::vector<float> scores = Project(s, mesh);
    std::size_t inside = 0;
    for (std::size_t k = 0; k < mesh.size(); ++k) {
      const auto [col, row] = Tilted_Pixel(s, mesh[k]);
      const long double c = std::rint(col), r = std::rint(1200 - row);
      const bool seen = c >= 0 && r >= 0 && c <= 1200 && r <= 1200;
      inside += seen;
      ASSERT_EQ(scores[k], seen ? Told(static_cast<int>(c), static_cast<int>(r)) : 0) << k;
    }
    EXPECT_GT(inside, 1000U);
    EXPECT_LT(inside, 2000U);
  });
}

TEST_F(BackProjectionUnits, EveryUnitAndNumberOfThreadsGivesTheSameBits) {
  const std::vector<Point3D> mesh = Random_Mesh(40003);
  const std::vector<float> expected = Project(Tilted(), mesh);
  Run([&] {
    EXPECT_EQ(Project(Tilted(), mesh, 1), expected);
    EXPECT_EQ(Project(Tilted(), mesh, 0), expected);
  });
}

TEST_F(BackProjectionUnits, TiesFollowTheRoundingOfTheCollinearityEquations) {
  // Two pixels per metre, points every half metre: all lie half way between two pixels, and the
  // last bit of (-c) dX / q decides; another order of the same product would decide differently.
  PatchProjection s = Straight_Down();
  s.affine = {16000, 0, 600.5, 0, 16000, 600.5};
  s.Z0 = 800;
  std::vector<Point3D> mesh;
  for (double X = -250; X <= 250; X += 0.5) mesh.push_back({X, 0.25 * X, 0});
  std::vector<float> expected;
  int otherwise = 0;
  for (const Point3D& p : mesh) {
    const double col = 16000 * (-0.1 * p.X / -800) + 600.5;
    const double row = 1200 - (16000 * (-0.1 * p.Y / -800) + 600.5);
    expected.push_back(Told(static_cast<int>(std::rint(col)), static_cast<int>(std::rint(row))));
    otherwise += std::rint(col) != std::rint(16000 * (-0.1 / -800 * p.X) + 600.5) ? 1 : 0;
  }
  EXPECT_GT(otherwise, 10);
  Run([&] { EXPECT_EQ(Project(s, mesh), expected); });
}

using Images = std::vector<std::vector<float>>;

std::vector<float> Mean(const Images& values, int threads = 1) {
  const std::vector<std::span<const float>> spans(values.begin(), values.end());
  std::vector<float> scores(values[0].size(), 77);
  Geometric_Mean_Scores(spans, scores, threads);
  return scores;
}

TEST(GeometricMean, ValuesWorkedOutByHand) {
  EXPECT_EQ(Mean({{0}, {0}, {0}})[0], 1);
  EXPECT_EQ(Mean({{1}, {1}})[0], 2);
  EXPECT_EQ(Mean({{0.5F}, {0.5F}, {0.5F}, {0.5F}, {0.5F}})[0], 1.5F);
  EXPECT_FLOAT_EQ(Mean({{1}, {-0.5F}})[0], 1);
  EXPECT_FLOAT_EQ(Mean({{0.5F}, {0}})[0], static_cast<float>(std::sqrt(1.5)));
}

TEST(GeometricMean, OneImageOfMinusOneGivesZero) { EXPECT_EQ(Mean({{0.9F}, {-1}, {0.9F}})[0], 0); }

TEST(GeometricMean, OneImageGivesOnePlusItsValue) {
  EXPECT_EQ(Mean({{0.25F, -1}}), (std::vector<float>{1.25F, 0}));
}

TEST(GeometricMean, ProductBelowZeroAndNaNGiveZero) {
  EXPECT_EQ(Mean({{-3}, {0.5F}})[0], 0);
  EXPECT_EQ(Mean({{std::numeric_limits<float>::quiet_NaN()}, {0.5F}})[0], 0);
}

TEST(GeometricMean, NoImagesTooManyAndShortSpansAreRejected) {
  std::vector<float> scores(2);
  const std::vector<float> two(2), one(1);
  EXPECT_THROW(Geometric_Mean_Scores({}, scores), RunTimeError);
  const std::vector<std::span<const float>> ten(10, two);
  EXPECT_THROW(Geometric_Mean_Scores(ten, scores), RunTimeError);
  const std::vector<std::span<const float>> uneven = {two, one};
  EXPECT_THROW(Geometric_Mean_Scores(uneven, scores), RunTimeError);
}

Images Random_Values(std::size_t images, std::size_t count) {
  std::mt19937 random(9);
  std::uniform_real_distribution<float> value(-1, 1);
  Images values(images, std::vector<float>(count));
  for (auto& image : values) {
    for (float& v : image) v = value(random);
  }
  // The smallest non-zero product and the largest.
  for (auto& image : values) {
    image[0] = std::nextafter(-1.0F, 0.0F);
    image[1] = 1;
  }
  return values;
}

using GeometricMeanUnits = OnEveryVectorUnit;

TEST_F(GeometricMeanUnits, MatchesThePowerFunctionToTheLastBit) {
  Run([] {
    for (std::size_t images = 1; images <= 9; ++images) {
      const Images values = Random_Values(images, 2003);
      const std::vector<float> scores = Mean(values);
      for (std::size_t k = 0; k < scores.size(); ++k) {
        long double product = 1;
        for (const auto& image : values) product *= 1 + static_cast<long double>(image[k]);
        const auto expected =
            static_cast<float>(std::pow(product, 1 / static_cast<long double>(images)));
        ASSERT_EQ(scores[k], expected) << images << " images, point " << k;
      }
    }
  });
}

TEST_F(GeometricMeanUnits, EveryUnitAndNumberOfThreadsGivesTheSameBits) {
  const Images values = Random_Values(5, 50001);
  const std::vector<float> expected = Mean(values);
  Run([&] {
    EXPECT_EQ(Mean(values, 1), expected);
    EXPECT_EQ(Mean(values, 0), expected);
  });
}

/// Expected sum over half a million points computed by an independent program.
TEST(BackProjection, SumOfALargeMeshIsThatOfAnIndependentProgram) {
  constexpr std::size_t kPoints = 500000;
  const std::vector<Point3D> mesh = bench::Mesh(kPoints);
  const ZeroedArray<double> volume = bench::Smooth_Volume();
  Images values(5, std::vector<float>(kPoints));
  for (int k = 0; k < 5; ++k) {
    const auto [camera, first] = bench::Patch_Camera(k);
    MYFUNC_COMPUTEBKPROJ(k, Make_Patch_Projection(camera, first), mesh, volume.All(),
                         values[static_cast<std::size_t>(k)]);
  }
  const std::vector<float> scores = Mean(values, 0);
  EXPECT_NEAR(std::accumulate(scores.begin(), scores.end(), 0.0), 476883.936, 0.01);
}

}  // namespace
}  // namespace sylvomex
