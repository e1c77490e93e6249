// SPDX-License-Identifier: MIT
#include "solver/safe_sqrt.h"

#include <cmath>

namespace sylvomex {

double Safe_Sqrt(double a, const Report& report) {
  if (!(a >= 0)) {
    if (report) report("Square root of negative argument!");
    return 0.0001;
  }
  return std::sqrt(a);
}

}  // namespace sylvomex
