// SPDX-License-Identifier: MIT
#include "crowns/crown_fit.h"

#include <algorithm>
#include <cmath>

namespace sylvomex {
namespace {

constexpr double kSmallCorrection = 0.001;
constexpr double kRestartRmse = 3.0;  // metres
constexpr CrownShape kRestart{0.15, 0.7, 0.6};
constexpr double kLargestRmse = 1.2;  // metres
constexpr float kLeastRatio = 0.05F;
constexpr float kLargestRatio = 0.15F;

bool Are_Small(const CrownRow& corrections) {
  return std::ranges::all_of(corrections,
                             [](double value) { return std::fabs(value) < kSmallCorrection; });
}

bool Is_Finite(const CrownShape& shape) {
  return std::isfinite(shape.a) && std::isfinite(shape.p) && std::isfinite(shape.b);
}

CrownShape Corrected(const CrownShape& shape, const CrownRow& corrections, double rmse) {
  const CrownShape next{shape.a + corrections[0], shape.p + corrections[1],
                        shape.b + corrections[2]};
  return next.p < 0 || rmse > kRestartRmse ? kRestart : next;
}

CrownVerdict Checked(const CrownFit& fit, double height) {
  if (fit.rmse > kLargestRmse) return CrownVerdict::LargeRmse;
  return Has_Crown_Ratio(fit.shape, height) ? CrownVerdict::Fitted : CrownVerdict::CrownRatio;
}

// False at the end of the fit.
bool Iterate(const CrownObservations& observations, const CrownFitSettings& settings,
             const CrownSolver& solve, const CrownFitListener& listener, CrownDesign& design,
             CrownFit& fit) {
  Build_Crown_Design(observations, fit.shape, design);
  if (std::isfinite(design.rmse)) fit.rmse = design.rmse;
  const std::optional<CrownRow> corrections = solve(design.problem);
  ++fit.counter;
  if (corrections && Are_Small(*corrections)) return false;
  if (corrections && fit.counter > settings.last_counter) return false;
  const CrownShape next = corrections ? Corrected(fit.shape, *corrections, design.rmse) : fit.shape;
  if (!corrections || !Is_Finite(next)) {
    fit.verdict = CrownVerdict::NotSolvable;
    return false;
  }
  if (listener) listener(fit);
  fit.shape = next;
  return true;
}

}  // namespace

bool Has_Crown_Ratio(const CrownShape& shape, double height) {
  const auto ratio = static_cast<float>(Crown_Radius(shape, height, 0.5 * height) / height);
  return ratio >= kLeastRatio && ratio <= kLargestRatio;
}

CrownFit Fit_Crown(const CrownObservations& observations, const CrownShape& start,
                   const CrownFitSettings& settings, const CrownSolver& solve,
                   const CrownFitListener& listener) {
  CrownFit fit{start, settings.first_counter, 0, CrownVerdict::Fitted};
  CrownDesign design;
  while (Iterate(observations, settings, solve, listener, design, fit)) {
  }
  if (fit.verdict == CrownVerdict::Fitted && settings.checks != CrownChecks::None) {
    fit.verdict = Checked(fit, observations.Height());
  }
  return fit;
}

}  // namespace sylvomex
