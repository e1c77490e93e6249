// SPDX-License-Identifier: MIT
#include "solver/vector3.h"

#include <algorithm>
#include <cmath>

#include "platform/checked_arithmetic.h"

namespace sylvomex {
namespace {

constexpr const char* kNoDirection = "a vector of length 0 has no direction";

}  // namespace

double Vector_Length(const Vector3& v) {
  return Finite_Result(std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z), "the length of a vector", v.x,
                       v.y, v.z);
}

double Angle_Between_Vectors(const Vector3& a, const Vector3& b) {
  const double dot = a.x * b.x + a.y * b.y + a.z * b.z;
  const double cosine = Quotient(dot, Vector_Length(a) * Vector_Length(b), kNoDirection);
  // Rounding may push the cosine of parallel vectors above 1.
  return std::acos(std::clamp(cosine, -1.0, 1.0));
}

void Normalize_Vector(Vector3& v) {
  const double length = Vector_Length(v);
  v = {Quotient(v.x, length, kNoDirection), Quotient(v.y, length, kNoDirection),
       Quotient(v.z, length, kNoDirection)};
}

void Make_Vector(Vector3& v, double x, double y, double z) { v = {x, y, z}; }

}  // namespace sylvomex
