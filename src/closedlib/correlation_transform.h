// SPDX-License-Identifier: MIT
// The products of all windows with a template by Fourier transforms of tiles, for templates so
// large that summing product by product takes longer.
#pragma once

#include <cstdint>
#include <span>

#include "closedlib/correlation_plan.h"
#include "closedlib/tile_transform.h"

namespace sylvomex {

/// A bound for the error of Transform_Products before rounding, far above observed errors; below
/// one half the products are exact. With u = 2^-53 and e = 10 u log2(cols x rows), a transform's
/// error is at most e times its result, both in the 2-norm (Higham 2002, Accuracy and Stability of
/// Numerical Algorithms, theorem 24.2; a radix-4 step is two of radix 2). So by the Cauchy-Schwarz
/// inequality the two transforms forward and the product of the spectra, which adds 3 u, leave a
/// sum wrong by at most (2 e + 3 u) |tile| |template|; the transform back adds e |sums| <= e |tile|
/// times the sum of the template's magnitudes.
double Transform_Error(TileShape shape, std::int64_t mask_pixels);

/// How the windows are divided into tiles, and the estimated cost.
struct TileChoice {
  TileShape shape;
  double cost = 0;  // nanoseconds, approximate
};

/// The cheapest tiles for cols x rows windows. The cost is infinite where the box is too large
/// for a tile or the mask for exact products.
TileChoice Choose_Tiles(const CorrelationPlan& plan, std::int64_t cols, std::int64_t rows,
                        int threads);

/// The windows' products, sum of v (t - kTapOffset) over the mask, as exact integers.
/// patch: the first window's first pixel, with the columns and rows of all windows together.
/// products: one entry per window, at most as many as fit.
void Transform_Products(const CorrelationPlan& plan, TileShape shape,
                        const TileView<const std::uint8_t>& patch, const TileView<double>& products,
                        int threads);

}  // namespace sylvomex
