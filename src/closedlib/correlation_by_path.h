// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "closedlib/correlation_sums.h"

namespace sylvomex {

/// The arguments of MYFUNC_CORIMA, by the same names.
struct CorrelationInput {
  std::span<const std::uint8_t> patch;
  int patch_width = 0, patch_height = 0;
  std::span<const std::uint8_t> pattern;
  int template_width = 0, template_height = 0;
  int reference_col = 0, reference_row = 0;
};

/// Where the products of windows and template come from.
enum class Products {
  Cheapest,    // as Choose_Tiles and the path's tap cost advise
  Added,       // by the path, product by product
  Transformed  // by Fourier transforms, where the template is not too large for them
};

/// MYFUNC_CORIMA with a given implementation of the sums; the values are the same with every one.
void Correlate_By_Path(const SumPath& path, const CorrelationInput& input, std::span<double> result,
                       int threads, Products products = Products::Cheapest);

}  // namespace sylvomex
