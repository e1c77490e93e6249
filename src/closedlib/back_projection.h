// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace sylvomex {

/// X, Y, Z in metres, as the records of a mesh lie in memory.
struct MeshPoint {
  double X = 0, Y = 0, Z = 0;
};

/// Sizes of the correlation table: offset of (image, col, row) = image + 9 (col + 1201 row).
inline constexpr int kVolumeImages = 9;
inline constexpr int kVolumeSide = 1201;

/// The correlation found at each mesh point's projection into one image's patch: the value of
/// the nearest patch pixel (half to even in both directions), 0 outside the patch and for a
/// point in the plane of the projection centre. Every value is 0 for c = 0.
///
/// affine: A1, A2, A0, B1, B2, B0; exterior: omega, phi, kappa (radians), X0, Y0, Z0, c
/// (metres); patch: FullHeight, SubColOrigin, SubRowOrigin of the patch, whose row origin counts
/// from the bottom of the full image (patch row = SubRowOrigin - row), and 1201. volume: the
/// whole table; entries beyond an image's patch hold 0. scores: one value a point.
/// RunTimeError(SubscriptOutOfRange) for an image outside 0 to 8 and when a span is too short.
/// threads: 1 for the calling thread alone, 0 for all; the values are the same bit for bit.
void MYFUNC_COMPUTEBKPROJ(int image, const std::array<double, 6>& affine,
                          const std::array<double, 7>& exterior, const std::array<double, 4>& patch,
                          std::span<float> scores, std::span<const MeshPoint> mesh,
                          std::span<const double> volume, int threads = 0);

/// S = ((1 + v1) ... (1 + vN)) ^ (1 / N) for every point; values: N spans of one value a point,
/// N from 1 to 9. A product below 0, which values from -1 to 1 cannot have, gives 0; a value that
/// is no number gives 0. RunTimeError(SubscriptOutOfRange) for another N or a short span.
void Geometric_Mean_Scores(std::span<const std::span<const float>> values, std::span<float> scores,
                           int threads = 0);

}  // namespace sylvomex
