// SPDX-License-Identifier: MIT
#include "solver/space_intersection.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "platform/run_time_error.h"
#include "solver/test_cameras.h"
#include "support/failure_of.h"

namespace sylvomex {
namespace {

using testing::Block;
using testing::FilmPoint;
using testing::Image_From;
using testing::Nine_Images;
using testing::Project;

constexpr Point3D kTruth = {2515103.27, 6859941.6, 172.84};
constexpr Point3D kStart = {2515095, 6859950, 160};
constexpr IntersectionSettings kFine = {1e-6, 1e-6, 1e-6, 100};

std::vector<ImageRecord> First_Cameras(std::size_t n) {
  std::vector<ImageRecord> cameras = Nine_Images();
  cameras.resize(n);
  return cameras;
}

/// Two vertical photographs 600 m apart, 1000 m above the origin, which lies midway between them.
std::vector<ImageRecord> Vertical_Pair() {
  return {Image_From(-300, 0, 1000), Image_From(300, 0, 1000)};
}

void Expect_Point(const Point3D& point, const Point3D& expected, double tolerance) {
  EXPECT_NEAR(point.X, expected.X, tolerance);
  EXPECT_NEAR(point.Y, expected.Y, tolerance);
  EXPECT_NEAR(point.Z, expected.Z, tolerance);
}

TEST(IntersectRays, ExactObservationsFromTwoToNineImagesGiveTheTruth) {
  for (std::size_t n = 2; n <= 9; ++n) {
    Block block(First_Cameras(n));
    block.Observe(kTruth);
    const IntersectionResult result = Intersect_Rays(block.observations, kStart, kFine);
    EXPECT_FALSE(result.singular);
    Expect_Point(result.point, kTruth, 1e-6);
    EXPECT_NEAR(result.rmse_um, 0, 1e-3) << n << " images";
  }
}

TEST(IntersectRays, ExactDataStopsAfterTwoOrThreePassesWithTheUsualLimits) {
  Block block(First_Cameras(5));
  block.Observe(kTruth);
  const IntersectionResult result = Intersect_Rays(block.observations, kStart, {});
  EXPECT_GE(result.passes, 2);
  EXPECT_LE(result.passes, 3);
  Expect_Point(result.point, kTruth, 1e-4);
  EXPECT_LT(result.rmse_um, 1);
}

TEST(IntersectRays, TwoImagesLeaveOneDegreeOfFreedom) {
  // A y-parallax of 10 um cannot be fitted: 5 um remain in each image, sqrt(2 * 25 / 1) um.
  Block block(Vertical_Pair());
  block.Observe({0, 0, 0});
  block.observations[0].film.y += 5e-6;
  block.observations[1].film.y -= 5e-6;
  const IntersectionResult result = Intersect_Rays(block.observations, {1, 1, 1}, kFine);
  Expect_Point(result.point, {0, 0, 0}, 1e-6);
  EXPECT_NEAR(result.rmse_um, std::sqrt(50.0), 1e-6);
}

TEST(IntersectRays, StandardDeviationsOfTheNormalCase) {
  // sigma_X = sigma_Y = rmse H / (c sqrt 2), sigma_Z = rmse H^2 / (c (B / 2) sqrt 2).
  Block block(Vertical_Pair());
  block.Observe({0, 0, 0});
  block.observations[0].film.y += 5e-6;
  block.observations[1].film.y -= 5e-6;
  const IntersectionResult result = Intersect_Rays(block.observations, {1, 1, 1}, kFine);
  EXPECT_NEAR(result.std_x, 0.05, 1e-8);
  EXPECT_NEAR(result.std_y, 0.05, 1e-8);
  EXPECT_NEAR(result.std_z, 1.0 / 6, 1e-8);
  EXPECT_NEAR(result.q11, 5e7, 1);
  EXPECT_NEAR(result.q33, 1e12 / 1800, 100);
}

/// An independent least-squares adjustment: numeric derivatives, normal equations in long double,
/// Gauss-Jordan elimination.
struct Adjustment {
  long double point[3] = {};
  long double std[3] = {};
  long double rmse_um = 0;
};

class IndependentSolver {
 public:
  explicit IndependentSolver(const Block& block) : block_(block) {}

  Adjustment Solve(const Point3D& start) {
    Adjustment a;
    a.point[0] = start.X;
    a.point[1] = start.Y;
    a.point[2] = start.Z;
    for (int pass = 0; pass < 20; ++pass) {
      Accumulate(a.point);
      Gauss_Jordan();
      for (int i = 0; i < 3; ++i) a.point[i] += n_[i][3];
    }
    Accumulate(a.point);
    Gauss_Jordan();
    a.rmse_um = 1e6L * std::sqrt(sum_ / (2 * static_cast<long double>(block_.images.size()) - 3));
    for (int i = 0; i < 3; ++i) a.std[i] = a.rmse_um / 1e6L * std::sqrt(n_[i][4 + i]);
    return a;
  }

 private:
  /// Adds to N | t | I at the point; t from measured minus computed.
  void Accumulate(const long double (&p)[3]) {
    for (auto& row : n_) std::fill(std::begin(row), std::end(row), 0.0L);
    for (int i = 0; i < 3; ++i) n_[i][4 + i] = 1;
    sum_ = 0;
    for (std::size_t k = 0; k < block_.images.size(); ++k) {
      const FilmPoint at = Project(block_.images[k], p[0], p[1], p[2]);
      const FilmPosition& measured = block_.observations[k].film;
      long double gx[3], gy[3];
      Gradient(block_.images[k], p, gx, gy);
      Add_Row(gx, measured.x - at.x);
      Add_Row(gy, measured.y - at.y);
    }
  }

  static void Gradient(const ImageRecord& image, const long double (&p)[3], long double (&gx)[3],
                       long double (&gy)[3]) {
    const long double h = 0.01L;
    for (int i = 0; i < 3; ++i) {
      const long double dx = i == 0 ? h : 0, dy = i == 1 ? h : 0, dz = i == 2 ? h : 0;
      const FilmPoint above = Project(image, p[0] + dx, p[1] + dy, p[2] + dz);
      const FilmPoint below = Project(image, p[0] - dx, p[1] - dy, p[2] - dz);
      gx[i] = (above.x - below.x) / (2 * h);
      gy[i] = (above.y - below.y) / (2 * h);
    }
  }

  void Add_Row(const long double (&g)[3], long double residual) {
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) n_[i][j] += g[i] * g[j];
      n_[i][3] += g[i] * residual;
    }
    sum_ += residual * residual;
  }

  void Gauss_Jordan() {
    for (int pivot = 0; pivot < 3; ++pivot) {
      const long double diagonal = n_[pivot][pivot];
      for (long double& value : n_[pivot]) value /= diagonal;
      for (int row = 0; row < 3; ++row) {
        if (row == pivot) continue;
        const long double factor = n_[row][pivot];
        for (int j = 0; j < 7; ++j) n_[row][j] -= factor * n_[pivot][j];
      }
    }
  }

  const Block& block_;
  long double n_[3][7] = {};
  long double sum_ = 0;
};

TEST(IntersectRays, NoisyObservationsAgreeWithAnIndependentAdjustment) {
  std::mt19937 random(11);
  std::normal_distribution<double> noise(0, 8e-6);
  for (std::size_t n = 2; n <= 9; ++n) {
    Block block(First_Cameras(n));
    block.Observe(kTruth);
    for (FilmObservation& o : block.observations) {
      o.film.x += noise(random);
      o.film.y += noise(random);
    }
    const IntersectionResult result = Intersect_Rays(block.observations, kStart, kFine);
    const Adjustment other = IndependentSolver(block).Solve(kStart);
    EXPECT_NEAR(result.point.X, static_cast<double>(other.point[0]), 1e-6);
    EXPECT_NEAR(result.point.Y, static_cast<double>(other.point[1]), 1e-6);
    EXPECT_NEAR(result.point.Z, static_cast<double>(other.point[2]), 1e-6);
    EXPECT_NEAR(result.rmse_um, static_cast<double>(other.rmse_um), 1e-6) << n << " images";
    EXPECT_NEAR(result.std_x, static_cast<double>(other.std[0]), 1e-8);
    EXPECT_NEAR(result.std_y, static_cast<double>(other.std[1]), 1e-8);
    EXPECT_NEAR(result.std_z, static_cast<double>(other.std[2]), 1e-8);
  }
}

TEST(IntersectRays, LastCorrectionsAreThoseOfTheLastPass) {
  // Nearly linear over a metre: the first pass almost reaches the truth.
  Block block(First_Cameras(4));
  block.Observe(kTruth);
  const Point3D start = {kTruth.X - 0.5, kTruth.Y + 0.25, kTruth.Z - 1};
  const IntersectionResult result = Intersect_Rays(block.observations, start, {10, 10, 10, 100});
  EXPECT_EQ(result.passes, 1);
  EXPECT_NEAR(result.last_dx, 0.5, 2e-3);
  EXPECT_NEAR(result.last_dy, -0.25, 2e-3);
  EXPECT_NEAR(result.last_dz, 1, 2e-3);
  Expect_Point(result.point, kTruth, 2e-3);
}

TEST(IntersectRays, CorrectionEqualToItsLimitRequiresAnotherPass) {
  Block block(First_Cameras(4));
  block.Observe(kTruth);
  const Point3D start = {kTruth.X - 0.5, kTruth.Y + 0.25, kTruth.Z - 1};
  const IntersectionResult first = Intersect_Rays(block.observations, start, {10, 10, 10, 100});
  const IntersectionResult at_limit =
      Intersect_Rays(block.observations, start, {10, 10, std::abs(first.last_dz), 100});
  EXPECT_EQ(at_limit.passes, 2);
  const double just_above = std::nextafter(std::abs(first.last_dz), 10);
  EXPECT_EQ(Intersect_Rays(block.observations, start, {10, 10, just_above, 100}).passes, 1);
}

TEST(IntersectRays, EachOfTheThreeLimitsCounts) {
  Block block(First_Cameras(4));
  block.Observe(kTruth);
  const Point3D start = {kTruth.X - 0.5, kTruth.Y + 0.5, kTruth.Z - 0.5};
  EXPECT_EQ(Intersect_Rays(block.observations, start, {0.1, 10, 10, 100}).passes, 2);
  EXPECT_EQ(Intersect_Rays(block.observations, start, {10, 0.1, 10, 100}).passes, 2);
  EXPECT_EQ(Intersect_Rays(block.observations, start, {10, 10, 0.1, 100}).passes, 2);
}

TEST(IntersectRays, CorrectionInXOfExactlyZeroForcesOneExtraPass) {
  // By symmetry the first pass finds dX = 0 and dZ = -0.01; then the images move a little.
  Block block(Vertical_Pair());
  block.Observe({0, 0, 0});
  const auto shift = [&block] {
    for (FilmObservation& o : block.observations) o.film.x += 1e-7;
  };
  const IntersectionResult result = Intersect_Rays(block.observations, {0, 0, 0.01}, {}, shift);
  EXPECT_EQ(result.passes, 2);
  EXPECT_NEAR(result.last_dx, 0.001, 1e-6);
}

TEST(IntersectRays, StartOnTheExactPointRunsToTheHundredthPass) {
  Block block(Vertical_Pair());
  block.Observe({0, 0, 0});
  const IntersectionResult result = Intersect_Rays(block.observations, {0, 0, 0}, {});
  EXPECT_EQ(result.passes, 100);
  EXPECT_FALSE(result.singular);
  Expect_Point(result.point, {0, 0, 0}, 1e-9);
}

TEST(IntersectRays, LimitsOfZeroRunToTheHundredthPass) {
  Block block(First_Cameras(3));
  block.Observe(kTruth);
  const IntersectionResult result = Intersect_Rays(block.observations, kStart, {0, 0, 0, 100});
  EXPECT_EQ(result.passes, 100);
  Expect_Point(result.point, kTruth, 1e-6);
}

TEST(IntersectRays, NonConvergingRunAppliesTheLastCorrectionTwice) {
  // The target alternates between two points 10 m apart: the hundredth pass, at P, observes Q and
  // steps by Q - P, and the step is applied once more.
  const Point3D p = kTruth;
  const Point3D q = {kTruth.X + 10, kTruth.Y, kTruth.Z};
  Block block(First_Cameras(4));
  block.Observe(p);
  int passes = 0;
  const auto jump = [&] { block.Observe(++passes % 2 == 1 ? q : p); };
  const IntersectionResult result = Intersect_Rays(block.observations, q, {}, jump);
  EXPECT_EQ(result.passes, 100);
  EXPECT_EQ(passes, 100);
  EXPECT_FALSE(result.singular);
  Expect_Point(result.point, {kTruth.X + 20, kTruth.Y, kTruth.Z}, 0.3);
}

TEST(IntersectRays, StartsAtTheGivenPointUnchanged) {
  // With one pass allowed, its correction is applied twice: as far beyond the truth as the start
  // was before it.
  Block block(First_Cameras(4));
  block.Observe(kTruth);
  const Point3D start = {kTruth.X - 0.5, kTruth.Y + 0.25, kTruth.Z - 1};
  const IntersectionResult result =
      Intersect_Rays(block.observations, start, {0.03, 0.03, 0.03, 1});
  Expect_Point(result.point, {kTruth.X + 0.5, kTruth.Y - 0.25, kTruth.Z + 1}, 5e-3);
}

TEST(IntersectRays, ObservationsAreTakenAtTheStartOfEachPass) {
  Block block(First_Cameras(4));
  block.Observe(kTruth);
  int taken = 0;
  const auto take = [&]() -> std::span<const FilmObservation> {
    ++taken;
    return block.observations;
  };
  const IntersectionResult result = Intersect_Rays(take, kStart, {});
  EXPECT_GT(taken, 1);
  EXPECT_EQ(taken, result.passes);
  Expect_Point(result.point, kTruth, 1e-4);
}

TEST(IntersectRays, ObservationsOfTheLastPassGiveThePointAndItsRmse) {
  // Exact to the first point, then to the truth with a y-parallax of 10 um: RMSE sqrt(50) um.
  Block block(Vertical_Pair());
  block.Observe({40, -30, 15});
  int taken = 0;
  const auto take = [&]() -> std::span<const FilmObservation> {
    if (++taken == 2) {
      block.Observe({0, 0, 0});
      block.observations[0].film.y += 5e-6;
      block.observations[1].film.y -= 5e-6;
    }
    return block.observations;
  };
  const IntersectionResult result = Intersect_Rays(take, {1, 1, 1}, kFine);
  Expect_Point(result.point, {0, 0, 0}, 1e-6);
  EXPECT_NEAR(result.rmse_um, std::sqrt(50.0), 1e-6);
}

TEST(IntersectRays, LimitsChangedBetweenPassesApplyAtTheNextTest) {
  Block block(First_Cameras(4));
  block.Observe(kTruth);
  IntersectionSettings settings = {0, 0, 0, 100};
  const IntersectionResult result = Intersect_Rays(block.observations, kStart, settings, [&] {
    settings = {1000, 1000, 1000, 100};
  });
  EXPECT_EQ(result.passes, 2);
}

TEST(IntersectRays, EventsAreServicedAfterEveryPassThatRequiresAnother) {
  Block block(First_Cameras(5));
  block.Observe(kTruth);
  int serviced = 0;
  const IntersectionResult result =
      Intersect_Rays(block.observations, kStart, {}, [&serviced] { ++serviced; });
  EXPECT_EQ(serviced, result.passes - 1);
}

TEST(IntersectRays, FailureInsideServicedEventsPropagates) {
  Block block(First_Cameras(5));
  block.Observe(kTruth);
  const auto fail = [] { throw RunTimeError(Failure::TypeMismatch, "\"abc\""); };
  EXPECT_THROW(Intersect_Rays(block.observations, kStart, {}, fail), RunTimeError);
}

TEST(IntersectRays, ParallelRaysDivergeUntilTheNormalMatrixIsSingular) {
  // Both rays point straight down. Each pass doubles the depth H below the cameras, and
  // det N = 0.72 / H^8 falls under 1e-200 once H > 9.6e24 = 1000 * 2^73.02: in pass 75.
  Block block(Vertical_Pair());
  const IntersectionResult result = Intersect_Rays(block.observations, {0, 0, 0}, {});
  EXPECT_TRUE(result.singular);
  EXPECT_EQ(result.passes, 75);
  EXPECT_NEAR(result.point.Z / (-1000 * 0x1p74), 1, 1e-6);
}

TEST(IntersectRays, CamerasWithoutPrincipalDistanceAreSingularAtOnce) {
  Block block({Image_From(-300, 0, 1000, 0, 0, 0, 0.0), Image_From(300, 0, 1000, 0, 0, 0, 0.0)});
  const IntersectionResult result = Intersect_Rays(block.observations, {1, 2, 3}, {});
  EXPECT_TRUE(result.singular);
  EXPECT_EQ(result.passes, 1);
  Expect_Point(result.point, {1, 2, 3}, 0);
}

TEST(IntersectRays, NaNObservationEndsTheIteration) {
  Block block(First_Cameras(3));
  block.Observe(kTruth);
  block.observations[1].film.x = std::nan("");
  const IntersectionResult result = Intersect_Rays(block.observations, kStart, {});
  EXPECT_EQ(result.passes, 1);
  EXPECT_FALSE(result.singular);
  EXPECT_TRUE(std::isnan(result.point.X));
  EXPECT_TRUE(std::isnan(result.rmse_um));
}

TEST(IntersectRays, InfiniteObservationEndsWithinTheLimit) {
  Block block(First_Cameras(3));
  block.Observe(kTruth);
  block.observations[1].film.x = std::numeric_limits<double>::infinity();
  const IntersectionResult result = Intersect_Rays(block.observations, kStart, {});
  EXPECT_LE(result.passes, 100);
  EXPECT_FALSE(std::isfinite(result.point.X));
}

TEST(IntersectRays, StartAtTheCamerasHeightIsADivisionByZero) {
  Block block(Vertical_Pair());
  const auto intersect = [&] { Intersect_Rays(block.observations, {0, 0, 1000}, {}); };
  EXPECT_TRUE(Failure_Of(intersect).starts_with("Division by zero: "));
}

TEST(IntersectRays, MoreThanNineObservationsAreASubscriptError) {
  std::vector<ImageRecord> cameras = Nine_Images();
  cameras.push_back(cameras.front());
  Block block(cameras);
  try {
    Intersect_Rays(block.observations, kStart, {});
    FAIL() << "ten observations were taken";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::SubscriptOutOfRange);
  }
}

}  // namespace
}  // namespace sylvomex
