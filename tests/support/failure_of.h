// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {

/// The text of the RunTimeError that an action throws.
template <class Action>
std::string Failure_Of(Action&& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.what();
  }
  return "no failure";
}

}  // namespace sylvomex
