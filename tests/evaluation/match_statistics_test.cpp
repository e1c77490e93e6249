// SPDX-License-Identifier: MIT
#include "evaluation/match_statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

Report No_Report() {
  return [](std::string_view text) { ADD_FAILURE() << text; };
}

RegressionLine Line_Of(const std::vector<double>& x, const std::vector<double>& y) {
  return Fit_Line(x, y, No_Report());
}

ReferenceTreeRecord Tree(double diameter, double height, double z_error = 0) {
  ReferenceTreeRecord tree;
  tree.TreeDiameter = diameter;
  tree.TreeHeight = height;
  tree.TreeZ = 100 + height;
  tree.ClusterZ = tree.TreeZ - z_error;
  return tree;
}

// By hand: mean x 20, Sxx 200, Sxy 10; residuals -1/6, 2/6, -1/6.
TEST(Regression, ThreePointsGiveTheLineWorkedOutByHand) {
  const RegressionLine line = Line_Of({10, 20, 30}, {1, 2, 2});
  EXPECT_DOUBLE_EQ(line.b, 0.05);
  EXPECT_NEAR(line.a, 2.0 / 3, 1e-14);
  EXPECT_NEAR(line.se_a, std::sqrt(7.0 / 18), 1e-14);
  EXPECT_NEAR(line.se_b, std::sqrt(1.0 / 1200), 1e-15);
  EXPECT_NEAR(line.r2, 0.75, 1e-14);
}

TEST(Regression, PointsOnALineLeaveNoErrors) {
  const RegressionLine line = Line_Of({0, 1, 2, 3}, {5, 3, 1, -1});
  EXPECT_EQ(line.a, 5);
  EXPECT_EQ(line.b, -2);
  EXPECT_EQ(line.se_a, 0);
  EXPECT_EQ(line.se_b, 0);
  EXPECT_EQ(line.r2, 1);
}

TEST(Regression, FewerThanThreePointsAreADivisionByZero) {
  const std::string two = "Division by zero: the regression of 2 points takes at least 3";
  EXPECT_EQ(Failure_Of([] { Line_Of({1, 2}, {1, 3}); }), two);
  const std::string one = "Division by zero: the regression of 1 points takes at least 3";
  EXPECT_EQ(Failure_Of([] { Line_Of({1}, {1}); }), one);
  const std::string none = "Division by zero: the regression of 0 points takes at least 3";
  EXPECT_EQ(Failure_Of([] { Line_Of({}, {}); }), none);
}

TEST(Regression, EqualHeightsAreADivisionByZero) {
  EXPECT_EQ(Failure_Of([] {
              Line_Of({5, 5, 5}, {1, 2, 3});
            }),
            "Division by zero: the regression of 3 points has one abscissa for all");
}

TEST(Regression, EqualErrorsAreADivisionByZero) {
  EXPECT_EQ(Failure_Of([] {
              Line_Of({1, 2, 3}, {0, 0, 0});
            }),
            "Division by zero: the regression of 3 points has one ordinate for all");
}

TEST(Regression, ANaNVarianceIsReportedOnce) {
  int reports = 0;
  const std::vector<double> x{1, 2, 3}, y{1, std::nan(""), 3};
  Fit_Line(x, y, [&](std::string_view) { ++reports; });
  EXPECT_EQ(reports, 1);
}

TEST(ZErrors, AreTopsMinusClustersOverTreeHeights) {
  const std::vector<ReferenceTreeRecord> trees{Tree(0, 10, 1), Tree(0, 20, 2), Tree(0, 30, 2)};
  EXPECT_EQ(Z_Error(trees[1]), 2);
  EXPECT_NEAR(Fit_Z_Errors(trees, No_Report()).b, 0.05, 1e-14);
  EXPECT_DOUBLE_EQ(Z_Rmse(trees), std::sqrt(3.0));  // (1 + 4 + 4) / 3
}

TEST(XYErrors, TheirRmseIsOverTheDistancesInPlan) {
  std::vector<ReferenceTreeRecord> trees(2);
  trees[0].TreeX = 3;
  trees[0].ClusterY = 4;
  trees[1].ClusterX = 1;
  EXPECT_DOUBLE_EQ(XY_Rmse(trees), std::sqrt((25.0 + 1.0) / 2));
}

TEST(Errors, OfNoTreeAreADivisionByZero) {
  EXPECT_EQ(Failure_Of([] { XY_Rmse({}); }), "Division by zero: there is no matched tree");
  EXPECT_EQ(Failure_Of([] { Z_Rmse({}); }), "Division by zero: there is no matched tree");
  EXPECT_EQ(Failure_Of([] { Mean_And_Rmse({}); }),
            "Division by zero: there is no value to average");
}

TEST(Volumes, AreFourTenthsOfDiameterSquaredTimesHeight) {
  EXPECT_NEAR(Stem_Volume_Of(Tree(200, 25)), 0.4 * 0.04 * 25, 1e-15);
}

TEST(Volumes, TheShareIsMatchedOverMatchedAndOmitted) {
  const std::vector<ReferenceTreeRecord> matched{Tree(200, 20), Tree(100, 20)};  // 0.32 + 0.08
  const std::vector<ReferenceTreeRecord> omitted{Tree(100, 25)};                 // 0.1
  EXPECT_NEAR(Matched_Volume_Share(matched, omitted), 0.8, 1e-14);
}

TEST(Volumes, AnEmptyClassLeavesItsSumAtZero) {
  const std::vector<ReferenceTreeRecord> trees{Tree(200, 20)};
  EXPECT_EQ(Matched_Volume_Share(trees, {}), 1);
  EXPECT_EQ(Matched_Volume_Share({}, trees), 0);
  EXPECT_EQ(Failure_Of([] { Matched_Volume_Share({}, {}); }),
            "Division by zero: the reference trees have no volume");
}

TEST(MeanAndRmse, OfValuesByHand) {
  const std::vector<double> values{1, -3, 5};
  const MeanAndRmse result = Mean_And_Rmse(values);
  EXPECT_EQ(result.mean, 1);
  EXPECT_DOUBLE_EQ(result.rmse, std::sqrt(35.0 / 3));
}

}  // namespace
}  // namespace sylvomex
