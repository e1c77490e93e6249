// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {

/// Throws RunTimeError(SubscriptOutOfRange) naming the routine.
[[noreturn]] inline void Refuse_Argument(const char* routine, const std::string& about) {
  throw RunTimeError(Failure::SubscriptOutOfRange, std::string(routine) + ": " + about);
}

/// The same for a caller's array with fewer entries than the routine accesses.
inline void Require_Room(const char* routine, const char* what, std::size_t given,
                         std::size_t needed) {
  if (given >= needed) return;
  Refuse_Argument(routine, std::to_string(needed) + " " + what + " are needed, " +
                               std::to_string(given) + " are given");
}

}  // namespace sylvomex
