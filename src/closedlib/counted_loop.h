// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>
#include <string>

#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {

/// Number of passes of a loop over the reals first, first + step, ... up to last, both ends
/// included: 101 from -5 to 5 by 0.1. The end is included even if rounding misses it by a millionth
/// of the step. 0 when last lies below first by more than that, or when one is NaN. step must be
/// positive. The result is an integer, however large.
inline double Loop_Steps(double first, double last, double step) {
  const double steps = std::floor((last - first) / step + 1e-6) + 1;
  return steps > 0 ? steps : 0;
}

/// The same as an integer type. RunTimeError(Overflow) above a million passes, more than any pane
/// can show.
inline std::int32_t Loop_Passes(double first, double last, double step) {
  constexpr double kMostPasses = 1'000'000;
  const double passes = Loop_Steps(first, last, step);
  if (passes > kMostPasses) {
    throw RunTimeError(Failure::Overflow, Plain_Text(first) + " to " + Plain_Text(last) +
                                              " in steps of " + Plain_Text(step) +
                                              " are more than 1000000 steps");
  }
  return static_cast<std::int32_t>(passes);
}

}  // namespace sylvomex
