// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "interchange/echo_record.h"

namespace sylvomex {

/// The echoes of a pulse in order of arrival: begin to end of the sorted echoes.
struct PulseSpan {
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
};

/// Joins echoes into pulses. Echoes of one time whose return numbers all differ are one pulse, in
/// the order of their return numbers. Where a time holds a return number twice, its echoes are
/// taken in their present order: each continues the earliest pulse of that time with as many
/// returns that has come to a lower return number, and begins a new one where there is none.
///
/// echoes: all those of the times that occur; sorted here so that each pulse is one span.
std::vector<PulseSpan> Join_Pulses(std::vector<EchoRecord>& echoes);

}  // namespace sylvomex
