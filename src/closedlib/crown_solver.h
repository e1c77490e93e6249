// SPDX-License-Identifier: MIT
// Least-squares solution for a crown's profile: three unknowns.
#pragma once

#include <array>
#include <optional>
#include <vector>

namespace sylvomex {

using CrownRow = std::array<double, 3>;

/// Design x = misclosure, one row per observation, all with weight 1.
struct CrownProblem {
  std::vector<CrownRow> rows;
  std::vector<double> misclosure;
};

/// The least-squares solution by the normal equations, scaled to a unit diagonal and solved by
/// Cholesky's method (Golub and Van Loan, Matrix Computations (2013), sections 4.2 and 5.3).
/// std::nullopt when the columns are linearly dependent to 13 digits or the solution is not
/// finite.
std::optional<CrownRow> MYFUNC_MATLABCALLNOMSGS(const CrownProblem& problem);

}  // namespace sylvomex
