// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "closedlib/correlation_image.h"
#include "closedlib/correlation_sums.h"

namespace sylvomex {

/// How the products of windows and template are computed.
enum class Products {
  Cheapest,    // whichever Choose_Tiles and the path's tap cost estimate as faster
  Added,       // summed by the path, product by product
  Transformed  // by Fourier transforms, unless the template is too large for them
};

/// MYFUNC_CORIMA with a given implementation of the sums; all of them give the same values.
void Correlate_By_Path(const SumPath& path, const CorrelationInput& input, std::span<double> result,
                       int threads, Products products = Products::Cheapest);

}  // namespace sylvomex
