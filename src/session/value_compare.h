// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace sylvomex {

/// Whether a printed value is the expected one. Two lists of equally many numbers compare
/// number by number to 1e-9 of the larger magnitude, anything else compares as whole text.
bool Values_Agree(std::string_view value, std::string_view expected);

}  // namespace sylvomex
