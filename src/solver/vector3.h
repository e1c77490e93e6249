// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Vector3 {
  double x = 0, y = 0, z = 0;
};

/// RunTimeError(Overflow) when the length of a finite vector is out of range.
double Vector_Length(const Vector3& v);

/// Radians, by the arc cosine of the normalised dot product. A zero vector is a
/// RunTimeError(DivisionByZero), also in Normalize_Vector.
double Angle_Between_Vectors(const Vector3& a, const Vector3& b);

/// Divides the vector by its length.
void Normalize_Vector(Vector3& v);

void Make_Vector(Vector3& v, double x, double y, double z);

}  // namespace sylvomex
