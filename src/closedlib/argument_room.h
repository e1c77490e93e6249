// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {

/// RunTimeError(SubscriptOutOfRange) that names the routine.
[[noreturn]] inline void Refuse_Argument(const char* routine, const std::string& about) {
  throw RunTimeError(Failure::SubscriptOutOfRange, std::string(routine) + ": " + about);
}

/// The same for an array of the caller with fewer entries than the routine will touch.
inline void Require_Room(const char* routine, const char* what, std::size_t given,
                         std::size_t needed) {
  if (given >= needed) return;
  Refuse_Argument(routine, std::to_string(needed) + " " + what + " are needed, " +
                               std::to_string(given) + " are given");
}

}  // namespace sylvomex
