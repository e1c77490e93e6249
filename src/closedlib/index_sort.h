// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace sylvomex {

/// Index sort, ascending and stable (Press et al., Numerical Recipes,
/// section 8.4; here a radix sort of order-preserving keys). Index base 1:
/// entry 0 of both spans is unused, entries 1 to n = size - 1 are read and written. NaN sorts
/// above every number.
/// threads: 1 for the calling thread alone, 0 for all; the result is the same.
void MYFUNC_INDEXX(std::span<const float> scores, std::span<std::int32_t> index, int threads = 0);

}  // namespace sylvomex
