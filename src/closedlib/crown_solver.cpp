// SPDX-License-Identifier: MIT
#include "closedlib/crown_solver.h"

#include <algorithm>
#include <cmath>

namespace sylvomex {
namespace {

constexpr double kLeastPivot = 1e-13;  // relative to a unit diagonal

struct NormalEquations {
  std::array<CrownRow, 3> matrix{};
  CrownRow right{};
};

// The lower triangle; separate sums stay in registers.
NormalEquations Normal_Equations(const CrownProblem& problem) {
  double aa = 0, ab = 0, ac = 0, bb = 0, bc = 0, cc = 0, av = 0, bv = 0, cv = 0;
  for (std::size_t n = 0; n < problem.rows.size(); ++n) {
    const auto [a, b, c] = problem.rows[n];
    const double v = problem.misclosure[n];
    aa += a * a;
    ab += a * b;
    ac += a * c;
    bb += b * b;
    bc += b * c;
    cc += c * c;
    av += a * v;
    bv += b * v;
    cv += c * v;
  }
  return {{CrownRow{aa, 0, 0}, CrownRow{ab, bb, 0}, CrownRow{ac, bc, cc}}, {av, bv, cv}};
}

// Returns the scales by which the unknowns must be multiplied afterwards; false when a diagonal
// entry is not a positive finite number.
bool Scale_To_Unit_Diagonal(NormalEquations& normal, CrownRow& scales) {
  for (std::size_t i = 0; i < 3; ++i) {
    const double diagonal = normal.matrix[i][i];
    if (!(diagonal > 0) || !std::isfinite(diagonal)) return false;
    scales[i] = 1 / std::sqrt(diagonal);
  }
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j <= i; ++j) normal.matrix[i][j] *= scales[i] * scales[j];
    normal.right[i] *= scales[i];
  }
  return true;
}

// Cholesky factor in place, lower triangle; false when a pivot vanishes.
bool Reduce(std::array<CrownRow, 3>& m) {
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      double sum = m[i][j];
      for (std::size_t k = 0; k < j; ++k) sum -= m[i][k] * m[j][k];
      if (i == j && !(sum > kLeastPivot)) return false;
      m[i][j] = i == j ? std::sqrt(sum) : sum / m[j][j];
    }
  }
  return true;
}

void Substitute(const std::array<CrownRow, 3>& m, CrownRow& x) {
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < i; ++k) x[i] -= m[i][k] * x[k];
    x[i] /= m[i][i];
  }
  for (std::size_t i = 3; i-- > 0;) {
    for (std::size_t k = i + 1; k < 3; ++k) x[i] -= m[k][i] * x[k];
    x[i] /= m[i][i];
  }
}

}  // namespace

std::optional<CrownRow> MYFUNC_MATLABCALLNOMSGS(const CrownProblem& problem) {
  NormalEquations normal = Normal_Equations(problem);
  CrownRow scales{};
  if (!Scale_To_Unit_Diagonal(normal, scales) || !Reduce(normal.matrix)) return std::nullopt;
  CrownRow x = normal.right;
  Substitute(normal.matrix, x);
  for (std::size_t i = 0; i < 3; ++i) x[i] *= scales[i];
  if (!std::ranges::all_of(x, [](double value) { return std::isfinite(value); })) {
    return std::nullopt;
  }
  return x;
}

}  // namespace sylvomex
