// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace sylvomex {

struct CorrelationInput {
  std::span<const std::uint8_t> patch;    // rows from the top, columns fastest
  int patch_width = 0, patch_height = 0;  // at most 32767, as for the template
  std::span<const std::uint8_t> pattern;  // the template, likewise
  int template_width = 0, template_height = 0;
  int reference_col = 0, reference_row = 0;  // from the template's first pixel, may lie outside it
};

/// A correlation image: for every patch pixel the zero-mean normalised cross-correlation of a
/// template whose reference point lies on that pixel (Lewis 1995, Fast Normalized
/// Cross-Correlation). Only the template's non-zero pixels are used, for the means and deviations
/// of both sides. 0 where one of those pixels falls outside the patch, and where the template or
/// the window has no variance. Always within -1 .. 1; within 1e-12 of the value from exact integer
/// sums.
///
/// result: as the patch. RunTimeError(SubscriptOutOfRange) when a span is too short.
/// threads: 1 for the calling thread alone, 0 for all; the values are the same bit for bit.
void MYFUNC_CORIMA(const CorrelationInput& input, std::span<double> result, int threads = 0);

}  // namespace sylvomex
