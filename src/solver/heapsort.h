// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "platform/report.h"

namespace sylvomex {

/// Indirect heap sort, ascending (Williams 1964, Algorithm 232; Press et al., Numerical
/// Recipes, section 8.4 "Indexing"). values and index hold entries 1 to n at 0 to n - 1;
/// index receives positions counted from 1. Ties have no defined order. n = 0 is allowed.
/// A run-time error inside reports "Error in Heapsort, l is <l>" and returns.
void Heapsort(std::int32_t n, std::span<const float> values, std::span<std::int32_t> index,
              const Report& report);

}  // namespace sylvomex
