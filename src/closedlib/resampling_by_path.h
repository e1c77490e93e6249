// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "closedlib/normalized_image.h"
#include "closedlib/resampling_rows.h"

namespace sylvomex {

/// Resample_Rows with a given implementation of the segments; all of them give the same bytes.
void Resample_Rows_By_Path(SegmentPath path, const NormalizedImage& image,
                           std::span<const std::uint8_t> source, int first_row, int rows,
                           std::span<std::uint8_t> target);

}  // namespace sylvomex
