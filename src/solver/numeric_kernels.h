// SPDX-License-Identifier: MIT
// Scalar and vector kernels shared by the solvers.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace sylvomex {

/// Receives one sentence for a message box when a kernel meets invalid input.
using Report = std::function<void(std::string_view)>;

struct Vector3 {
  double x = 0, y = 0, z = 0;
};

/// Indirect heap sort, ascending (Williams 1964, Algorithm 232; Press et al., Numerical
/// Recipes, section 8.4 "Indexing"). values and index hold entries 1 to n at 0 to n - 1;
/// index receives positions counted from 1. Ties have no defined order. n = 0 is allowed.
/// A run-time error inside reports "Error in Heapsort, l is <l>" and returns.
void Heapsort(std::int32_t n, std::span<const float> values, std::span<std::int32_t> index,
              const Report& report);

/// Square root; for a negative (or NaN) argument reports "Square root of negative argument!"
/// and answers 0.0001.
double Safe_Sqrt(double a, const Report& report);

/// RunTimeError(Overflow) when the length of a finite vector is out of range.
double Vector_Length(const Vector3& v);

/// Radians, by the arc cosine of the normalised dot product. A zero vector is a
/// RunTimeError(DivisionByZero), here and below.
double Angle_Between_Vectors(const Vector3& a, const Vector3& b);

/// Divides by the length.
void Normalize_Vector(Vector3& v);

void Make_Vector(Vector3& v, double x, double y, double z);

/// Eight digits with leading zeros from a uniform random number in [0, 1).
std::string Random_Id8(double uniform);

}  // namespace sylvomex
