// SPDX-License-Identifier: MIT
#include "solver/space_intersection.h"

#include <cmath>

#include "platform/checked_arithmetic.h"
#include "solver/small_matrix.h"

namespace sylvomex {
namespace {

constexpr int kMaxImages = 9;
constexpr int kMaxRows = 2 * kMaxImages;
constexpr double kSmallestDeterminant = 1e-200;
constexpr double kMicrometresPerMetre = 1e6;

/// A d = l at the current approximation, with the sum of squares of l.
struct Equations {
  int rows = 0;
  Matrix<kMaxRows, 3> design;
  Vector<kMaxRows> misclosures;
  double sum_of_squares = 0;
};

Equations Form_Equations(std::span<const FilmObservation> observations, const Point3D& point) {
  if (observations.size() > kMaxImages) {
    Throw_Subscript(static_cast<long long>(observations.size()), 1, kMaxImages);
  }
  Equations e;
  for (const FilmObservation& o : observations) {
    const CollinearityPartials p = Collinearity_Partials(o.camera, point, o.film);
    const int x_row = ++e.rows;
    const int y_row = ++e.rows;
    e.misclosures(x_row) = p.lx;
    e.misclosures(y_row) = p.ly;
    e.sum_of_squares = e.sum_of_squares + p.lx * p.lx + p.ly * p.ly;
    e.design(x_row, 1) = p.ax1;
    e.design(x_row, 2) = p.ax2;
    e.design(x_row, 3) = p.ax3;
    e.design(y_row, 1) = p.ay1;
    e.design(y_row, 2) = p.ay2;
    e.design(y_row, 3) = p.ay3;
  }
  return e;
}

Matrix<3, kMaxRows> Transposed(const Matrix<kMaxRows, 3>& a, int rows) {
  Matrix<3, kMaxRows> at;
  for (int i = 1; i <= rows; ++i) {
    for (int j = 1; j <= 3; ++j) at(j, i) = a(i, j);
  }
  return at;
}

/// m without one row and one column.
Matrix<2, 2> Minor(const Matrix<3, 3>& m, int omitted_row, int omitted_column) {
  Matrix<2, 2> minor;
  for (int i = 1; i <= 2; ++i) {
    for (int j = 1; j <= 2; ++j) {
      minor(i, j) = m(i < omitted_row ? i : i + 1, j < omitted_column ? j : j + 1);
    }
  }
  return minor;
}

/// Inverse by cofactors; m is symmetric, so the cofactor matrix needs no transposition.
Matrix<3, 3> Inverse_Of_Symmetric(const Matrix<3, 3>& m, double det) {
  Matrix<3, 3> inverse;
  for (int i = 1; i <= 3; ++i) {
    for (int j = 1; j <= 3; ++j) {
      const double element = (1 / det) * Determinant_2(Minor(m, i, j));
      inverse(i, j) = (i + j) % 2 == 0 ? element : -element;
    }
  }
  return inverse;
}

/// Stores the corrections and cofactors of one pass in the result; false when the normal matrix is
/// singular. The dimensions of the products agree by construction.
bool Solve(const Equations& e, IntersectionResult& result) {
  const Matrix<3, kMaxRows> at = Transposed(e.design, e.rows);
  Matrix<3, 3> normal;
  if (!MMUL_D(e.design, e.rows, 3, at, 3, e.rows, normal)) return false;
  const double det = Determinant_3(normal);
  if (std::abs(det) < kSmallestDeterminant) return false;
  Finite_Result(det, "the determinant of the normal matrix", result.point.X, result.point.Y,
                result.point.Z);

  const Matrix<3, 3> inverse = Inverse_Of_Symmetric(normal, det);
  Matrix<3, kMaxRows> product;
  Vector<3> d;
  if (!MMUL_D(at, 3, e.rows, inverse, 3, 3, product)) return false;
  if (!MATVECMULT_D(e.misclosures, e.rows, product, 3, e.rows, d)) return false;
  result.q11 = inverse(1, 1);
  result.q22 = inverse(2, 2);
  result.q33 = inverse(3, 3);
  result.last_dx = d(1);
  result.last_dy = d(2);
  result.last_dz = d(3);
  return true;
}

bool Another_Pass_Asked(const IntersectionResult& r, const IntersectionSettings& settings) {
  return std::abs(r.last_dx) >= settings.stop_dx || std::abs(r.last_dy) >= settings.stop_dy ||
         std::abs(r.last_dz) >= settings.stop_dz || std::abs(r.last_dx) <= 0;
}

void Apply_Corrections(IntersectionResult& result) {
  result.point.X += result.last_dx;
  result.point.Y += result.last_dy;
  result.point.Z += result.last_dz;
}

void Estimate_Precision(double sum_of_squares, int images, IntersectionResult& result) {
  result.rmse_um = kMicrometresPerMetre * std::sqrt(sum_of_squares / (2 * images - 3));
  result.std_x = 0.000001 * result.rmse_um * std::sqrt(result.q11);
  result.std_y = 0.000001 * result.rmse_um * std::sqrt(result.q22);
  result.std_z = 0.000001 * result.rmse_um * std::sqrt(result.q33);
}

}  // namespace

IntersectionResult Intersect_Rays(const ObservationSource& take_observations, const Point3D& start,
                                  const IntersectionSettings& settings,
                                  const std::function<void()>& before_next_pass) {
  IntersectionResult result;
  result.point = start;
  int images = 0;
  double sum_of_squares = 0;
  bool another_pass = true;
  while (another_pass && result.passes < settings.max_passes) {
    ++result.passes;
    const std::span<const FilmObservation> observations = take_observations();
    const Equations equations = Form_Equations(observations, result.point);
    images = equations.rows / 2;
    sum_of_squares = equations.sum_of_squares;
    if (!Solve(equations, result)) {
      result.singular = true;
      return result;
    }
    another_pass = Another_Pass_Asked(result, settings);
    if (another_pass) {
      Apply_Corrections(result);
      if (before_next_pass) before_next_pass();
    }
  }
  Apply_Corrections(result);
  Estimate_Precision(sum_of_squares, images, result);
  return result;
}

IntersectionResult Intersect_Rays(std::span<const FilmObservation> observations,
                                  const Point3D& start, const IntersectionSettings& settings,
                                  const std::function<void()>& before_next_pass) {
  return Intersect_Rays([observations] { return observations; }, start, settings, before_next_pass);
}

}  // namespace sylvomex
