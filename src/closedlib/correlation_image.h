// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace sylvomex {

/// A correlation image: for every patch pixel the zero-mean normalised cross-correlation of a
/// template whose reference point lies on that pixel (Lewis 1995, Fast Normalized
/// Cross-Correlation). Only the template's non-zero pixels count, for the means and deviations
/// of both sides. 0 where one of those pixels falls outside the patch, and where the template or
/// the window has no variance. Never outside -1 .. 1; within 1e-12 of the exact integer sums.
///
/// patch: patch_width x patch_height bytes, rows from the top, columns fastest; pattern:
/// template_width x template_height bytes likewise; reference_col, reference_row: place of the
/// reference point in the template, counted from its first pixel, may lie outside it; result:
/// as the patch. Sizes up to 32767; RunTimeError(SubscriptOutOfRange) when a span is too short.
/// threads: 1 for the calling thread alone, 0 for all; the values are the same bit for bit.
void MYFUNC_CORIMA(std::span<const std::uint8_t> patch, int patch_width, int patch_height,
                   std::span<const std::uint8_t> pattern, int template_width, int template_height,
                   int reference_col, int reference_row, std::span<double> result, int threads = 0);

}  // namespace sylvomex
