// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace sylvomex::demo {

/// The shortest decimal text without exponent that reads back as the same double.
std::string Exact_Text(double value);

/// The value with a fixed number of decimals.
std::string Fixed_Decimals(double value, int decimals);

}  // namespace sylvomex::demo
