// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "platform/point3d.h"

namespace sylvomex {

/// Sizes of the correlation table: offset of (image, col, row) = image + 9 (col + 1201 row).
inline constexpr int kVolumeImages = 9;
inline constexpr int kVolumeSide = 1201;

/// Projection from object space to the patch: collinearity with the rotation matrix m (row by row),
/// then the affine transform to full-image pixels, then the patch's origin (patch row = row_origin
/// - row).
struct PatchProjection {
  std::array<double, 9> m{};
  double X0 = 0, Y0 = 0, Z0 = 0;          // metres
  double c = 0;                           // metres
  std::array<double, 6> affine{};         // A1, A2, A0, B1, B2, B0
  double col_origin = 0, row_origin = 0;  // full-image; rows from the bottom
};

/// The correlation at each mesh point's projection into one image's patch: the value of
/// the nearest patch pixel (half to even in both directions), 0 outside the patch and for a
/// point in the plane of the projection centre. Every value is 0 for c = 0.
///
/// volume: the whole table; entries beyond an image's patch hold 0. scores: one value per point.
/// RunTimeError(SubscriptOutOfRange) for an image outside 0 to 8 and when a span is too short.
/// threads: 1 for the calling thread alone, 0 for all; the values are the same bit for bit.
void MYFUNC_COMPUTEBKPROJ(int image, const PatchProjection& projection,
                          std::span<const Point3D> mesh, std::span<const double> volume,
                          std::span<float> scores, int threads = 0);

/// S = ((1 + v1) ... (1 + vN)) ^ (1 / N) for every point; values: N spans of one value per point,
/// N from 1 to 9. A negative product, which values from -1 to 1 cannot give, and a NaN
/// value give 0. RunTimeError(SubscriptOutOfRange) for another N or a short span.
void Geometric_Mean_Scores(std::span<const std::span<const float>> values, std::span<float> scores,
                           int threads = 0);

}  // namespace sylvomex
