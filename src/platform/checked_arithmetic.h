// SPDX-License-Identifier: MIT
// Floating-point operations whose overflow or division by zero ends a command. Formulas that guard
// themselves do not use these.
#pragma once

#include <cmath>
#include <string>
#include <string_view>

#include "platform/run_time_error.h"

namespace sylvomex {

/// result, made of the inputs. RunTimeError(Overflow) about what, e.g. "image 7001, the ground
/// position", when it is not finite although every input is.
template <class... Inputs>
double Finite_Result(double result, std::string_view what, Inputs... inputs) {
  if (!std::isfinite(result) && (std::isfinite(inputs) && ...)) {
    throw RunTimeError(Failure::Overflow, std::string(what) + " is out of range");
  }
  return result;
}

/// numerator / divisor. RunTimeError(DivisionByZero) with the reason when the divisor is 0,
/// RunTimeError(Overflow) when the quotient of finite numbers is not finite.
inline double Quotient(double numerator, double divisor, std::string_view reason) {
  if (divisor == 0) throw RunTimeError(Failure::DivisionByZero, std::string(reason));
  return Finite_Result(numerator / divisor, "a quotient", numerator, divisor);
}

}  // namespace sylvomex
