// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>
#include <optional>

namespace sylvomex {

/// Seconds since 1970, or the time at which the clock was held.
std::time_t Wall_Clock();

/// Holds the clock at a time, so that work done anew gets the dates it had; std::nullopt lets it go
/// on.
void Hold_Wall_Clock(std::optional<std::time_t> at);

}  // namespace sylvomex
