// SPDX-License-Identifier: MIT
// Every conversion of a real to an integer goes through this header. Rounding is to the
// nearest integer, ties to the even one (IEEE 754-2019, section 4.3.1, roundTiesToEven).
#pragma once

#include <cstdint>

namespace sylvomex {

/// Nearest integer, ties to even, as a double. Independent of the process rounding mode.
double Round_Half_Even(double value);

/// Round_Half_Even(value) as a signed 16-bit integer; RunTimeError(Overflow) naming the
/// value when it is not finite or leaves -32768 .. 32767.
std::int16_t To_Int16(double value);

/// The same for signed 32-bit integers.
std::int32_t To_Int32(double value);

/// The same for unsigned bytes, 0 .. 255.
std::uint8_t To_Byte(double value);

/// The nearest single-precision number; RunTimeError(Overflow) naming the value when it is out
/// of range. NaN stays NaN.
float To_Single(double value);

}  // namespace sylvomex
