// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "heightmodels/tin_faces.h"

namespace sylvomex {

inline constexpr std::size_t kMostWalkers = 64;

/// The cell of each point, the one after the last outside the grid, for NaN and for infinity.
void Start_Cells(const TinFaces& faces, std::span<const MapPoint> points, std::int32_t* cells);

/// Replaces the start of each point by the number of the one triangle that holds it, 0 where
/// that is not certain. At most kMostWalkers points.
void Walk_To_Holders(const TinFaces& faces, std::span<const MapPoint> points,
                     std::int32_t* numbers);

}  // namespace sylvomex
