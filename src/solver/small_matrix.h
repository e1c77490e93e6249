// SPDX-License-Identifier: MIT
// Small dense matrices and vectors with index base 1 and fixed capacity for nine images. The
// dimensions in use are passed with the arrays.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/table.h"

namespace sylvomex {

/// Rows x Columns doubles counted from 1; (row, column) is bounds-checked.
template <int Rows, int Columns>
class Matrix {
 public:
  double& operator()(int row, int column) { return values_(Index(row, column)); }
  double operator()(int row, int column) const { return values_(Index(row, column)); }

 private:
  static int Index(int row, int column) {
    if (row < 1 || row > Rows) Throw_Subscript(row, 1, Rows);
    if (column < 1 || column > Columns) Throw_Subscript(column, 1, Columns);
    return (row - 1) * Columns + column - 1;
  }
  Table<double, 0, Rows * Columns - 1> values_;
};

template <int N>
using Vector = Table<double, 1, N>;

template <int R, int C>
double Determinant_2(const Matrix<R, C>& m) {
  return m(1, 1) * m(2, 2) - m(1, 2) * m(2, 1);
}

/// Sarrus' rule.
template <int R, int C>
double Determinant_3(const Matrix<R, C>& m) {
  return m(1, 1) * m(2, 2) * m(3, 3) + m(1, 2) * m(2, 3) * m(3, 1) + m(1, 3) * m(2, 1) * m(3, 2) -
         m(1, 1) * m(2, 3) * m(3, 2) - m(1, 2) * m(2, 1) * m(3, 3) - m(1, 3) * m(2, 2) * m(3, 1);
}

/// C = A B; note that the right-hand factor comes first. False, with C unchanged, when the number
/// of columns of A differs from the number of rows of B (kMatrixConflict is the message).
inline constexpr const char* kMatrixConflict =
    "Error in MMUL_D, cannot multiply matrices with dimension conflict!";
template <int RB, int CB, int RA, int CA, int RC, int CC>
[[nodiscard]] bool MMUL_D(const Matrix<RB, CB>& b, int rows_b, int cols_b, const Matrix<RA, CA>& a,
                          int rows_a, int cols_a, Matrix<RC, CC>& c) {
  if (cols_a != rows_b) return false;
  for (int i = 1; i <= rows_a; ++i) {
    for (int j = 1; j <= cols_b; ++j) {
      c(i, j) = 0;
      for (int k = 1; k <= rows_b; ++k) c(i, j) += a(i, k) * b(k, j);
    }
  }
  return true;
}

/// out = out + M v: the caller clears the output beforehand. False, with out unchanged, when the
/// number of columns of M differs from the length n of v (kVectorConflict).
inline constexpr const char* kVectorConflict =
    "In MATVECMULT_D dimensions of Matrix and Vector conflict!";
template <int NV, int R, int C, int NO>
[[nodiscard]] bool MATVECMULT_D(const Vector<NV>& v, int n, const Matrix<R, C>& m, int rows_m,
                                int cols_m, Vector<NO>& out) {
  if (cols_m != n) return false;
  for (int i = 1; i <= rows_m; ++i) {
    for (int j = 1; j <= cols_m; ++j) out(i) += m(i, j) * v(j);
  }
  return true;
}

}  // namespace sylvomex
