// SPDX-License-Identifier: MIT
// Statistics of a tree-top run. Metres unless stated otherwise. A divisor of 0 is a
// RunTimeError(DivisionByZero) that names the missing quantity.
#pragma once

#include <span>
#include <vector>

#include "evaluation/evaluation_state.h"
#include "platform/report.h"
#include "solver/safe_sqrt.h"

namespace sylvomex {

/// The records of class M, in the order of MatchIndex.
std::vector<ReferenceTreeRecord> Matched_Trees(const EvaluationState& state);

/// The records of class O, in the order of MatchIndex.
std::vector<ReferenceTreeRecord> Omitted_Trees(const EvaluationState& state);

/// Z error of a matched tree: its top minus its cluster.
double Z_Error(const ReferenceTreeRecord& tree);

/// y = a + b x by least squares, with the standard errors of a and b and the coefficient of
/// determination. Draper and Smith (1998), Applied Regression Analysis, chapter 1.
struct RegressionLine {
  double a = 0, b = 0;
  double se_a = 0, se_b = 0;
  double r2 = 0;  // explained sum of squares / total
};

/// y over x, both of the same length n. Needs three points, two different x and two different y.
/// report: receives the message of Safe_Sqrt for a negative residual variance.
RegressionLine Fit_Line(std::span<const double> x, std::span<const double> y, const Report& report);

/// Regression of the matched trees' Z errors on their heights.
RegressionLine Fit_Z_Errors(std::span<const ReferenceTreeRecord> matched, const Report& report);

/// 0.4 d^2 h with the diameter in metres: the cylinder of breast height diameter times a form
/// factor of about one half. Cubic metres.
double Stem_Volume_Of(const ReferenceTreeRecord& tree);

/// Volume of the matched trees divided by that of all trees, 0 to 1.
double Matched_Volume_Share(std::span<const ReferenceTreeRecord> matched,
                            std::span<const ReferenceTreeRecord> omitted);

/// Root mean square of the distances in plan between tree tops and clusters.
double XY_Rmse(std::span<const ReferenceTreeRecord> matched);

/// Root mean square of the Z errors.
double Z_Rmse(std::span<const ReferenceTreeRecord> matched);

struct MeanAndRmse {
  double mean = 0;
  double rmse = 0;  // about 0
};
MeanAndRmse Mean_And_Rmse(std::span<const double> values);

}  // namespace sylvomex
