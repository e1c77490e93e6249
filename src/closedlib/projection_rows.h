// SPDX-License-Identifier: MIT
// The inner loops of the back-projection, several points per call. One fixed order of operations on
// doubles, never fused, so every vector unit gives the same bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "closedlib/back_projection.h"

namespace sylvomex {

/// Index of each point's nearest pixel in a one-image table, col + kVolumeSide patch row;
/// kNoEntry where there is none. The entry is prefetched from the image's slice of the
/// volume, where it lies at slice[kVolumeImages x entry].
inline constexpr std::int64_t kNoEntry = -1;
void Nearest_Entries(const PatchProjection& projection, std::span<const Point3D> mesh,
                     const double* slice, std::int64_t* entries);

/// (product of 1 + v) ^ (1 / N), from N spans of one value per point; N from 2 to 9. A product that
/// is not greater than 0 (NaN included) gives 0.
void Mean_Roots(std::span<const std::span<const float>> values, std::size_t first,
                std::size_t count, float* scores);

}  // namespace sylvomex
