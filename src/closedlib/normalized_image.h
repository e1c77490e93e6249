// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "platform/drive_map.h"

namespace sylvomex {

/// Geometry of a frame image resampled to the plane of a normal-case pair. Lengths in metres.
struct NormalizedImage {
  double c = 0;                                  // principal distance of image and plane
  std::int16_t width = 0, height = 0;            // of the target, pixels
  std::int16_t full_width = 0, full_height = 0;  // of the source, pixels
  double Xmin = 0, Ymax = 0;                     // plane position of target pixel (0, 0)
  double PixelWidth = 0;                         // of the target
  bool colour = false;                           // three bytes a pixel; otherwise one
  std::array<double, 6> affine{};                // A1, A2, A0, B1, B2, B0: film to pixels
  std::array<double, 9> matrix{};                // normal frame to camera axes, by rows
};

/// Size in bytes of a raster of those dimensions.
std::uint64_t Raster_Bytes(std::int16_t width, std::int16_t height, bool colour);

/// Resamples rows first_row to first_row + rows - 1 of the target: target column i, row j (from
/// the top) is the plane point (Xmin + i PixelWidth, Ymax - j PixelWidth, -c), rotated into camera
/// axes, projected to the film at c, transformed to full-image pixels by the affine (rows from the
/// bottom), and interpolated bilinearly between the four surrounding source pixels, half to even.
/// Black unless all four lie in the source. source: the whole raster, rows from the top;
/// target: the rows' bytes. RunTimeError(SubscriptOutOfRange) when a span is too short.
void Resample_Rows(const NormalizedImage& image, std::span<const std::uint8_t> source,
                   int first_row, int rows, std::span<std::uint8_t> target);

/// Resamples a raw file into a new one, which replaces an older file only when
/// complete. RunTimeErrors of the file layer; RunTimeError(InputPastEnd) for a source shorter than
/// its size, RunTimeError(BadContent) for a size below one pixel. threads: 1 for the calling
/// thread alone, 0 for all; the bytes are the same.
void MYFUNC_CREATENORMALIZEDIMAGE(const NormalizedImage& image, const FilePath& source,
                                  const FilePath& target, int threads = 0);

}  // namespace sylvomex
