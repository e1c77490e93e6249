// SPDX-License-Identifier: MIT
// Least squares of a crown's profile: three unknowns.
#pragma once

#include <array>
#include <optional>
#include <vector>

namespace sylvomex {

using CrownRow = std::array<double, 3>;

/// Design x = misclosure, one row an observation, each of the weight 1.00.
struct CrownProblem {
  std::vector<CrownRow> rows;
  std::vector<double> misclosure;
};

/// The least-squares solution by the normal equations, scaled to a unit diagonal and reduced by
/// Cholesky's method (Golub and Van Loan, Matrix Computations (2013), sections 4.2 and 5.3).
/// Nothing when the columns depend on each other to 13 digits, and when the solution is not
/// finite.
std::optional<CrownRow> MYFUNC_MATLABCALLNOMSGS(const CrownProblem& problem);

}  // namespace sylvomex
