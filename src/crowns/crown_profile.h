// SPDX-License-Identifier: MIT
// The crown as a solid of revolution about a vertical axis through the tree top. Its radius at
// depth d below the top of a tree of height H is
//
//   r(d) = sin(4 d / H) ^ p * (H a) + b,
//
// all in metres, the angle in radians: at half the height the argument is 2. Crowns end there.
#pragma once

#include "crowns/crown_record.h"

namespace sylvomex {

struct CrownShape {
  double a = 0;  // scale
  double p = 0;  // exponent
  double b = 0;  // offset, metres

  bool operator==(const CrownShape&) const = default;
};

inline CrownShape Shape_Of(const CrownRecord& crown) { return {crown.A, crown.P, crown.B}; }

inline void Set_Shape(CrownRecord& crown, const CrownShape& shape) {
  crown.A = shape.a;
  crown.P = shape.p;
  crown.B = shape.b;
}

/// sin(4 d / H). RunTimeError(DivisionByZero) for a height of 0.
double Crown_Sine(double height, double depth);

/// sine ^ p * (H a) + b; NaN for a negative sine and a fractional exponent, which is what a
/// depth above the top gives.
double Radius_At_Sine(const CrownShape& shape, double height, double sine);

double Crown_Radius(const CrownShape& shape, double height, double depth);

/// No radius of a shape with an exponent of 0 or more is larger than this.
double Widest_Radius(const CrownShape& shape, double height);

}  // namespace sylvomex
