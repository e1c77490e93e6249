// SPDX-License-Identifier: MIT
#pragma once

#include "platform/report.h"

namespace sylvomex {

/// Square root; for a negative (or NaN) argument reports "Square root of negative argument!" and
/// returns 0.0001.
double Safe_Sqrt(double a, const Report& report);

}  // namespace sylvomex
