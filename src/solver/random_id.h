// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace sylvomex {

/// Eight digits with leading zeros made from a uniform random number in [0, 1).
std::string Random_Id8(double uniform);

}  // namespace sylvomex
