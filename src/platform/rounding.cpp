// SPDX-License-Identifier: MIT
#include "platform/rounding.h"

#include <cmath>
#include <limits>
#include <string>

#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {

namespace {

template <class Integer>
Integer To_Integer(double value) {
  constexpr std::int32_t kLowest = std::numeric_limits<Integer>::min();
  constexpr std::int32_t kHighest = std::numeric_limits<Integer>::max();
  const double rounded = Round_Half_Even(value);
  if (!(rounded >= kLowest && rounded <= kHighest)) {
    throw RunTimeError(Failure::Overflow, Plain_Text(value) + " is not in " + Plain_Text(kLowest) +
                                              " to " + Plain_Text(kHighest));
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

double Round_Half_Even(double value) {
  // Every step on the magnitude is exact, so the process rounding mode cannot matter.
  const double magnitude = std::fabs(value);
  if (!(magnitude < 4503599627370496.0)) return value;  // 2^52: larger doubles are integers
  double whole = std::floor(magnitude);
  const double fraction = magnitude - whole;
  const bool odd = std::floor(whole / 2) * 2 != whole;
  if (fraction > 0.5 || (fraction == 0.5 && odd)) whole += 1;
  return std::copysign(whole, value);
}

std::int16_t To_Int16(double value) { return To_Integer<std::int16_t>(value); }

std::int32_t To_Int32(double value) { return To_Integer<std::int32_t>(value); }

std::uint8_t To_Byte(double value) { return To_Integer<std::uint8_t>(value); }

float To_Single(double value) {
  if (std::abs(value) > std::numeric_limits<float>::max()) {
    throw RunTimeError(Failure::Overflow, Plain_Text(value) + " in single precision");
  }
  return static_cast<float>(value);
}

}  // namespace sylvomex
