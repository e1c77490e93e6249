// SPDX-License-Identifier: MIT
// The Gauss-Newton fit of a crown's profile to its echoes, and what a fitted crown must fulfil.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "crowns/crown_design.h"

namespace sylvomex {

/// Solves the linearised problem: corrections to a, p and b; nothing when it cannot be solved.
using CrownSolver = std::function<std::optional<CrownRow>(const CrownProblem&)>;

enum class CrownChecks { None, RmseAndCrownRatio };

struct CrownFitSettings {
  int first_counter = 0;  // of the iteration counter
  int last_counter = 15;  // above it the corrections are not applied any more
  CrownChecks checks = CrownChecks::None;
};

inline constexpr CrownFitSettings kFirstTreeFit{0, 15, CrownChecks::None};
inline constexpr CrownFitSettings kNextTreeFit{2, 20, CrownChecks::RmseAndCrownRatio};
inline constexpr CrownFitSettings kLocalTreeFit{0, 15, CrownChecks::None};

enum class CrownVerdict { Fitted, NotSolvable, LargeRmse, CrownRatio };

struct CrownFit {
  CrownShape shape;  // always finite
  int counter = 0;
  double rmse = 0;  // at the last shape that was put to the solver, metres
  CrownVerdict verdict = CrownVerdict::Fitted;
};

/// Told before each set of corrections is applied: what they were found at.
using CrownFitListener = std::function<void(const CrownFit&)>;

/// Starts at start and corrects until all three corrections are below 0.001, which are then not
/// applied, or the counter passes its limit. An exponent below 0 or an RMSE above 3 m starts
/// again from a = 0.15, p = 0.7, b = 0.6, with the counter as it is. A problem that is singular
/// or not finite ends the fit at its last shape.
///
/// Checks: RMSE at most 1.2 m; radius at half the height over the height within 0.05 to 0.15,
/// compared in single precision, both ends included.
CrownFit Fit_Crown(const CrownObservations& observations, const CrownShape& start,
                   const CrownFitSettings& settings, const CrownSolver& solve,
                   const CrownFitListener& listener = {});

/// True for r(H / 2) / H within the bounds above.
bool Has_Crown_Ratio(const CrownShape& shape, double height);

}  // namespace sylvomex
