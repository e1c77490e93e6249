// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace sylvomex {

/// Arc tangent in (-pi / 2, pi / 2), radians.
inline double MYFUNC_ATAN(double tangent) { return std::atan(tangent); }

}  // namespace sylvomex
