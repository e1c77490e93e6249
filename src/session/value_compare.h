// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace sylvomex {

/// Whether a printed value equals the expected one. Two lists of equally many numbers are compared
/// number by number with a tolerance of 1e-9 of the larger magnitude, anything else as text.
bool Values_Agree(std::string_view value, std::string_view expected);

}  // namespace sylvomex
