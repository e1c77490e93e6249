// SPDX-License-Identifier: MIT
// The trees of an area, one after the other from the highest echo down.
#pragma once

#include <optional>

#include "crowns/crown_echoes.h"
#include "crowns/crown_fit.h"

namespace sylvomex {

struct Workspace;

struct FittedTree {
  int number = 0;   // in CrownTrees
  int species = 0;  // 0 to 4
  double rmse = 0;  // metres
};

/// Tree 1 on the highest echo of all, which counts as the first of its echoes. It has no checks.
/// RunTimeError(SubscriptOutOfRange) when there is no echo.
FittedTree Fit_First_Crown(Workspace& w, CrownEchoes& echoes, const CrownSolver& solve);

/// The next tree, on the highest unused echo above lowest_seed (metres above the ground); the
/// status line tells how it ended. Nothing when no such echo is left or the fit failed: the
/// tree's number is then free again, its echoes stay used.
///
/// RunTimeError(SubscriptOutOfRange) naming the bound, the crown and its place for more than 2000
/// echoes in a crown or more than 5000 trees; the trees before stay.
std::optional<FittedTree> Fit_Next_Crown(Workspace& w, CrownEchoes& echoes, double lowest_seed,
                                         const CrownSolver& solve);

/// The end of a status text: counter and RMSE of a fit.
std::string Fit_Text(const CrownFit& fit);

/// The same with the number of echoes.
std::string Fit_Text(const CrownFit& fit, std::int32_t points);

}  // namespace sylvomex
