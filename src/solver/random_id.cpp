// SPDX-License-Identifier: MIT
#include "solver/random_id.h"

#include <cmath>

#include "platform/number_text.h"

namespace sylvomex {

std::string Random_Id8(double uniform) { return Format(std::floor(uniform * 1e8), "00000000"); }

}  // namespace sylvomex
