// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "platform/report.h"

namespace sylvomex {

/// Indirect heap sort, ascending (Williams 1964, Algorithm 232; Press et al., Numerical
/// Recipes, section 8.4 "Indexing"). values and index hold entries 1 to n at 0 to n - 1;
/// index receives positions counted from 1. The order of equal values is unspecified. n may be 0.
/// A run-time error inside is reported as "Error in Heapsort, l is <l>" and ends the sort.
void Heapsort(std::int32_t n, std::span<const float> values, std::span<std::int32_t> index,
              const Report& report);

}  // namespace sylvomex
