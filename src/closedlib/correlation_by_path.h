// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "closedlib/correlation_image.h"
#include "closedlib/correlation_sums.h"

namespace sylvomex {

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
