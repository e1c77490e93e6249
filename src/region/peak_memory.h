// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// Begins a new measurement of the most memory that this process has in use at once.
void Reset_Peak_Memory();

/// Bytes since the last reset; since the process began where the system knows no reset.
std::uint64_t Peak_Memory();

}  // namespace sylvomex
