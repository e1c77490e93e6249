// SPDX-License-Identifier: MIT
#include "crowns/crown_fit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "crowns/species.h"

namespace sylvomex {
namespace {

// Echoes that lie on a profile exactly, but for the single precision of the distances.
struct ModelledCrown {
  std::vector<float> radial, depth;
  double height;

  ModelledCrown(const CrownShape& shape, double tree_height, int count) : height(tree_height) {
    for (int i = 0; i < count; ++i) {
      depth.push_back(static_cast<float>(0.5 * height * (i + 0.5) / count));
      const double sine = std::sin(4 * double{depth.back()} / height);
      radial.push_back(static_cast<float>(std::pow(sine, shape.p) * height * shape.a + shape.b));
    }
  }
  [[nodiscard]] CrownObservations Observations() const { return {radial, depth, height}; }
};

double Radius(const CrownShape& shape, double height, double depth) {
  return std::pow(std::sin(4 * depth / height), shape.p) * (height * shape.a) + shape.b;
}

CrownObservations One_Echo(float radial, float depth, double height) {
  const std::vector<float> radials{radial}, depths{depth};
  return {radials, depths, height};
}

TEST(CrownDesign, OneRowByHand) {
  // H = 8 pi, d = pi: s = sin 0.5; the logarithm is that of sin(0.5 + 0.04 / H).
  const double height = 8 * std::numbers::pi;
  const auto depth = static_cast<float>(std::numbers::pi);
  CrownDesign design;
  Build_Crown_Design(One_Echo(3, depth, height), {0.1, 2, 0.25}, design);
  const double s = std::sin(4 * double{depth} / height);
  ASSERT_EQ(design.problem.rows.size(), 1U);
  EXPECT_NEAR(design.problem.rows[0][0], s * s * height, 1e-12);
  EXPECT_NEAR(design.problem.rows[0][1],
              s * s * height * 0.1 * std::log(std::sin(4 * (double{depth} + 0.01) / height)),
              1e-12);
  EXPECT_EQ(design.problem.rows[0][2], 1);
  const auto model = static_cast<float>(s * s * (height * 0.1) + 0.25);
  EXPECT_EQ(design.problem.misclosure[0], 3 - double{model});
  EXPECT_EQ(design.rmse, std::fabs(3 - double{model}));
}

TEST(CrownDesign, TheTopHasAFiniteRow) {
  CrownDesign design;
  Build_Crown_Design(One_Echo(0, 0, 20), {0.1, 0.75, 0.5}, design);
  EXPECT_EQ(design.problem.rows[0][0], 0);
  EXPECT_EQ(design.problem.rows[0][1], 0);
  EXPECT_EQ(design.problem.misclosure[0], -0.5);
}

TEST(CrownDesign, RmseIsTheRootMeanSquareOfTheMisclosures) {
  // At the top the model is b = 1: misclosures 2, 0 and -1.
  const std::vector<float> radial{3, 1, 0}, depth{0, 0, 0};
  CrownDesign design;
  Build_Crown_Design({radial, depth, 20}, {0.1, 0.5, 1}, design);
  EXPECT_NEAR(design.rmse, std::sqrt(5.0 / 3), 1e-15);
}

TEST(CrownDesign, ColumnsAreTheDerivativesOfTheProfile) {
  const double height = 21;
  const CrownShape at{0.11, 0.6, 0.4};
  const double step = 1e-6;
  for (const double depth : {0.5, 2.0, 5.0, 10.0}) {
    CrownDesign design;
    const auto kept = static_cast<float>(depth);
    Build_Crown_Design(One_Echo(0, kept, height), at, design);
    const CrownRow& row = design.problem.rows[0];
    const auto slope = [&](const CrownShape& up, const CrownShape& down) {
      return (Radius(up, height, kept) - Radius(down, height, kept)) / (2 * step);
    };
    EXPECT_NEAR(row[0], slope({at.a + step, at.p, at.b}, {at.a - step, at.p, at.b}), 1e-7);
    EXPECT_NEAR(row[2], slope({at.a, at.p, at.b + step}, {at.a, at.p, at.b - step}), 1e-7);
    // The offset inside the logarithm shifts column 2 by r' s^-1 cos(..) 0.04 / H at most.
    const double in_p = slope({at.a, at.p + step, at.b}, {at.a, at.p - step, at.b});
    const double sine = std::sin(4 * depth / height);
    const double shift = std::pow(sine, at.p) * height * at.a * 0.04 / height / sine;
    EXPECT_NEAR(row[1], in_p, 1.01 * shift);
    EXPECT_GT(std::fabs(row[1] - in_p), 0.3 * shift * std::fabs(std::cos(4 * depth / height)));
  }
}

// The corrections that end a fit are small but not applied: they are applied here, and the fit
// goes on from there.
CrownShape Fit_And_Correct(const ModelledCrown& crown, const CrownShape& start) {
  CrownRow last{};
  const CrownSolver keeping = [&last](const CrownProblem& problem) {
    const auto x = MYFUNC_MATLABCALLNOMSGS(problem);
    last = x.value_or(CrownRow{});
    return x;
  };
  const CrownFit fit = Fit_Crown(crown.Observations(), start, kNextTreeFit, keeping);
  EXPECT_EQ(fit.verdict, CrownVerdict::Fitted);
  EXPECT_LT(fit.rmse, 1e-3);
  return {fit.shape.a + last[0], fit.shape.p + last[1], fit.shape.b + last[2]};
}

TEST(CrownFit, ExactEchoesGiveTheShapeBack) {
  for (const CrownShape& truth :
       {CrownShape{0.11, 0.62, 0.35}, CrownShape{0.09, 0.9, 0.7}, CrownShape{0.13, 0.3, 0.2}}) {
    for (const double height : {12.0, 20.0, 31.0}) {
      const ModelledCrown crown(truth, height, 60);
      CrownShape shape = Fit_And_Correct(crown, Start_Shape(1));
      EXPECT_NEAR(shape.p, truth.p, 1e-4);
      // The logarithm's offset makes the steps shrink by a factor instead of squaring.
      for (int again = 0; again < 3; ++again) shape = Fit_And_Correct(crown, shape);
      EXPECT_NEAR(shape.a, truth.a, 1e-6);
      EXPECT_NEAR(shape.p, truth.p, 1e-6);
      EXPECT_NEAR(shape.b, truth.b, 1e-6);
    }
  }
}

TEST(CrownFit, SmallCorrectionsStopTheLoopBeforeTheyAreApplied) {
  const ModelledCrown crown({0.1, 0.7, 0.5}, 20, 30);
  const CrownSolver solve = [](const CrownProblem&) { return CrownRow{0.0009, -0.0009, 0.0009}; };
  const CrownFit fit = Fit_Crown(crown.Observations(), {0.1, 0.75, 0.5}, kNextTreeFit, solve);
  EXPECT_EQ(fit.counter, 3);
  EXPECT_EQ(fit.shape, (CrownShape{0.1, 0.75, 0.5}));
}

TEST(CrownFit, OneCorrectionOfAThousandthGoesOn) {
  const ModelledCrown crown({0.1, 0.7, 0.5}, 20, 30);
  int calls = 0;
  const CrownSolver solve = [&calls](const CrownProblem&) {
    return ++calls == 1 ? CrownRow{0, 0, 0.001} : CrownRow{};
  };
  const CrownFit fit = Fit_Crown(crown.Observations(), {0.1, 0.75, 0.5}, kNextTreeFit, solve);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(fit.shape.b, 0.501);
}

int Applied_Corrections(const CrownFitSettings& settings, int& counter) {
  const ModelledCrown crown({0.1, 0.7, 0.5}, 20, 30);
  const CrownSolver solve = [](const CrownProblem&) { return CrownRow{0, 0.01, 0}; };
  const CrownFit fit = Fit_Crown(crown.Observations(), {0.1, 0.5, 0.5}, settings, solve);
  counter = fit.counter;
  return static_cast<int>(std::lround((fit.shape.p - 0.5) / 0.01));
}

TEST(CrownFit, TheCounterRunsFromTwoAndTheTwentiethIsStillApplied) {
  int counter = 0;
  EXPECT_EQ(Applied_Corrections(kNextTreeFit, counter), 18);
  EXPECT_EQ(counter, 21);
}

TEST(CrownFit, TheFirstTreeCountsFromZeroToFifteen) {
  int counter = 0;
  EXPECT_EQ(Applied_Corrections(kFirstTreeFit, counter), 15);
  EXPECT_EQ(counter, 16);
  EXPECT_EQ(Applied_Corrections(kLocalTreeFit, counter), 15);
  EXPECT_EQ(counter, 16);
}

TEST(CrownFit, ANegativeExponentRestartsWithoutResettingTheCounter) {
  const ModelledCrown crown({0.1, 0.7, 0.5}, 20, 30);
  int calls = 0;
  const CrownSolver solve = [&calls](const CrownProblem&) {
    return ++calls == 1 ? CrownRow{0, -1, 0} : CrownRow{};
  };
  const CrownFit fit = Fit_Crown(crown.Observations(), {0.1, 0.75, 0.5}, kNextTreeFit, solve);
  EXPECT_EQ(fit.shape, (CrownShape{0.15, 0.7, 0.6}));
  EXPECT_EQ(fit.counter, 4);
}

// Depth 0 throughout: the model is b, so with b = 0 the RMSE is the radial distance.
CrownFit Fit_With_Rmse(float rmse, const CrownFitSettings& settings, bool correct_once) {
  const std::vector<float> radial(25, rmse), depth(25, 0);
  int calls = 0;
  const CrownSolver solve = [&](const CrownProblem&) {
    return correct_once && ++calls == 1 ? CrownRow{0.002, 0, 0} : CrownRow{};
  };
  return Fit_Crown({radial, depth, 20}, {0.1, 0.75, 0}, settings, solve);
}

TEST(CrownFit, AnRmseOfExactlyThreeDoesNotRestart) {
  EXPECT_EQ(Fit_With_Rmse(3, kNextTreeFit, true).shape, (CrownShape{0.1 + 0.002, 0.75, 0}));
  EXPECT_EQ(Fit_With_Rmse(std::nextafter(3.0F, 4.0F), kNextTreeFit, true).shape,
            (CrownShape{0.15, 0.7, 0.6}));
}

// Of 25 misclosures 16 are 1.5 m but for one of them: with 1.5 the mean square is 36 / 25.
CrownVerdict Verdict_With_One(float radial_distance) {
  std::vector<float> radial(25, 0);
  std::fill_n(radial.begin(), 16, 1.5F);
  radial[0] = radial_distance;
  const std::vector<float> depth(25, 0);
  const CrownSolver solve = [](const CrownProblem&) { return CrownRow{}; };
  return Fit_Crown({radial, depth, 20}, {0.1, 0.5, 0}, kNextTreeFit, solve).verdict;
}

TEST(CrownFit, AnRmseOfExactlyOnePointTwoIsAccepted) {
  EXPECT_EQ(Verdict_With_One(1.5F), CrownVerdict::Fitted);
  EXPECT_EQ(Verdict_With_One(1.50001F), CrownVerdict::LargeRmse);
}

TEST(CrownFit, TheFirstTreeHasNoChecks) {
  EXPECT_EQ(Fit_With_Rmse(2.5, kFirstTreeFit, false).verdict, CrownVerdict::Fitted);
}

TEST(CrownRatio, BothEndsPass) {
  // With a = 0 the radius is b: b / H = 1 / 20 and 3 / 20, which round to the bounds.
  EXPECT_TRUE(Has_Crown_Ratio({0, 0.7, 1}, 20));
  EXPECT_TRUE(Has_Crown_Ratio({0, 0.7, 3}, 20));
  EXPECT_FALSE(Has_Crown_Ratio({0, 0.7, 0.99999}, 20));
  EXPECT_FALSE(Has_Crown_Ratio({0, 0.7, 3.00001}, 20));
}

TEST(CrownRatio, IsComparedInSinglePrecision) {
  EXPECT_TRUE(Has_Crown_Ratio({0, 0.7, 1 - 1e-9}, 20));
  EXPECT_TRUE(Has_Crown_Ratio({0, 0.7, 3 + 1e-9}, 20));
}

TEST(CrownRatio, IsThatOfHalfTheHeight) {
  // sin 2 ^ 0.5 * 0.1 = 0.0954 of the height, plus 1 / 20.
  EXPECT_TRUE(Has_Crown_Ratio({0.1, 0.5, 1}, 20));
  EXPECT_FALSE(Has_Crown_Ratio({0.1, 0.5, 1.1}, 20));
}

TEST(CrownFit, ASingularProblemEndsItAtTheLastShape) {
  const std::vector<float> radial(30, 1), depth(30, 5);
  const CrownFit fit =
      Fit_Crown({radial, depth, 20}, {0.1, 0.75, 0.5}, kNextTreeFit, MYFUNC_MATLABCALLNOMSGS);
  EXPECT_EQ(fit.verdict, CrownVerdict::NotSolvable);
  EXPECT_EQ(fit.shape, (CrownShape{0.1, 0.75, 0.5}));
  EXPECT_EQ(fit.counter, 3);
}

TEST(CrownFit, CorrectionsBeyondEveryNumberEndItAtTheLastShape) {
  const ModelledCrown crown({0.1, 0.7, 0.5}, 20, 30);
  const double most = std::numeric_limits<double>::max();
  const CrownSolver solve = [&](const CrownProblem&) { return CrownRow{most, 0, 0}; };
  const CrownFit fit = Fit_Crown(crown.Observations(), {most, 0.75, 0.5}, kFirstTreeFit, solve);
  EXPECT_TRUE(std::isfinite(fit.shape.a));
  EXPECT_TRUE(std::isfinite(fit.rmse));
}

TEST(CrownFit, TellsItsListenerWhatTheCorrectionsWereFoundAt) {
  const ModelledCrown crown({0.1, 0.7, 0.5}, 20, 30);
  int calls = 0;
  const CrownSolver solve = [&calls](const CrownProblem&) {
    return ++calls < 3 ? CrownRow{0.01, 0, 0} : CrownRow{};
  };
  std::vector<CrownFit> told;
  Fit_Crown(crown.Observations(), {0.1, 0.75, 0.5}, kLocalTreeFit, solve,
            [&told](const CrownFit& fit) { told.push_back(fit); });
  ASSERT_EQ(told.size(), 2U);
  EXPECT_EQ(told[0].counter, 1);
  EXPECT_EQ(told[0].shape.a, 0.1);
  EXPECT_EQ(told[1].counter, 2);
  EXPECT_NEAR(told[1].shape.a, 0.11, 1e-15);
}

}  // namespace
}  // namespace sylvomex
