// SPDX-License-Identifier: MIT
#include "evaluation/match_statistics.h"

#include <cmath>
#include <string>

#include "platform/checked_arithmetic.h"

namespace sylvomex {
namespace {

constexpr double kMillimetresPerMetre = 1000;
constexpr double kVolumeFactor = 0.4;

double Sum(std::span<const double> values) {
  double sum = 0;
  for (const double value : values) sum += value;
  return sum;
}

/// The trees of `count` entries of MatchIndex, after the first `before` ones.
std::vector<ReferenceTreeRecord> Trees_Of_Class(const EvaluationState& state, int before,
                                                int count) {
  std::vector<ReferenceTreeRecord> trees;
  for (int i = before + 1; i <= before + count; ++i) {
    trees.push_back(Entry_From_One(state.ReferenceTree, Entry_From_One(state.MatchIndex, i)));
  }
  return trees;
}

/// Square root of sum / count.
double Root_Mean(double sum, std::size_t count, const char* of_what) {
  return std::sqrt(
      Quotient(sum, static_cast<double>(count), std::string("there is no ") + of_what));
}

double Squared_Plan_Error(const ReferenceTreeRecord& tree) {
  const double dx = tree.TreeX - tree.ClusterX;
  const double dy = tree.TreeY - tree.ClusterY;
  return dx * dx + dy * dy;
}

double Volume_Of_All(std::span<const ReferenceTreeRecord> trees) {
  double volume = 0;
  for (const ReferenceTreeRecord& tree : trees) volume += Stem_Volume_Of(tree);
  return volume;
}

/// Sums of squares for a regression line: of the values about their mean, and of the residuals.
struct Scatter {
  double explained = 0;
  double residual = 0;
};

Scatter Scatter_About(const RegressionLine& line, std::span<const double> x,
                      std::span<const double> y, double mean_y) {
  Scatter sums;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double fitted = line.a + line.b * x[i];
    sums.explained += (fitted - mean_y) * (fitted - mean_y);
    sums.residual += (y[i] - fitted) * (y[i] - fitted);
  }
  return sums;
}

}  // namespace

std::vector<ReferenceTreeRecord> Matched_Trees(const EvaluationState& state) {
  return Trees_Of_Class(state, 0, state.MatchCount);
}

std::vector<ReferenceTreeRecord> Omitted_Trees(const EvaluationState& state) {
  return Trees_Of_Class(state, state.MatchCount, state.OmittedCount);
}

double Z_Error(const ReferenceTreeRecord& tree) { return tree.TreeZ - tree.ClusterZ; }

RegressionLine Fit_Line(std::span<const double> x, std::span<const double> y,
                        const Report& report) {
  const auto n = static_cast<double>(x.size());
  const std::string points = "the regression of " + std::to_string(x.size()) + " points";
  const std::string too_few = points + " takes at least 3";
  const double sum_x = Sum(x);
  const double mean = Quotient(sum_x, n, too_few);
  double sxx = 0, sxy = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    sxx += (x[i] - mean) * (x[i] - mean);
    sxy += y[i] * (x[i] - mean);
  }
  RegressionLine line;
  line.b = Quotient(sxy, sxx, n < 3 ? too_few : points + " has one abscissa for all");
  line.a = (Sum(y) - line.b * sum_x) / n;
  const Scatter scatter = Scatter_About(line, x, y, Sum(y) / n);
  const double s = Safe_Sqrt(Quotient(scatter.residual, n - 2, too_few), report);
  line.se_a = s * std::sqrt((sum_x * sum_x / (n * sxx) + 1) / n);
  line.se_b = s * std::sqrt(1 / sxx);
  line.r2 = Quotient(scatter.explained, scatter.explained + scatter.residual,
                     points + " has one ordinate for all");
  return line;
}

RegressionLine Fit_Z_Errors(std::span<const ReferenceTreeRecord> matched, const Report& report) {
  std::vector<double> heights, errors;
  for (const ReferenceTreeRecord& tree : matched) {
    heights.push_back(tree.TreeHeight);
    errors.push_back(Z_Error(tree));
  }
  return Fit_Line(heights, errors, report);
}

double Stem_Volume_Of(const ReferenceTreeRecord& tree) {
  const double diameter = tree.TreeDiameter / kMillimetresPerMetre;
  return kVolumeFactor * diameter * diameter * tree.TreeHeight;
}

double Matched_Volume_Share(std::span<const ReferenceTreeRecord> matched,
                            std::span<const ReferenceTreeRecord> omitted) {
  const double volume = Volume_Of_All(matched);
  return Quotient(volume, volume + Volume_Of_All(omitted), "the reference trees have no volume");
}

double XY_Rmse(std::span<const ReferenceTreeRecord> matched) {
  double sum = 0;
  for (const ReferenceTreeRecord& tree : matched) sum += Squared_Plan_Error(tree);
  return Root_Mean(sum, matched.size(), "matched tree");
}

double Z_Rmse(std::span<const ReferenceTreeRecord> matched) {
  double sum = 0;
  for (const ReferenceTreeRecord& tree : matched) sum += Z_Error(tree) * Z_Error(tree);
  return Root_Mean(sum, matched.size(), "matched tree");
}

MeanAndRmse Mean_And_Rmse(std::span<const double> values) {
  double squares = 0;
  for (const double value : values) squares += value * value;
  MeanAndRmse result;
  result.mean =
      Quotient(Sum(values), static_cast<double>(values.size()), "there is no value to average");
  result.rmse = Root_Mean(squares, values.size(), "value to average");
  return result;
}

}  // namespace sylvomex
