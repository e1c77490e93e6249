// SPDX-License-Identifier: MIT
// The inner loops of the pane renderer, one row per call. Pixels are written as blue, green,
// red bytes. The widest vector unit is chosen at run time; the bytes are the
// same on every one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace sylvomex {

/// Red, green, blue to blue, green, red. rgb and bgr: 3 x pixels bytes each.
void Swap_Rgb_Row(const std::uint8_t* rgb, std::size_t pixels, std::uint8_t* bgr);

/// How source pixels are repeated along a row.
struct ExpandPlan {
  static constexpr int kGroup = 5;                 // source pixels consumed by one vector step
  static constexpr int kMostByVector = 16;         // larger factors are expanded pixel by pixel
  static constexpr std::size_t kSourceSlack = 32;  // readable bytes past the last pixel
  static constexpr std::size_t kTargetSlack = 16 * kMostByVector;  // writable bytes likewise

  int bytes_per_pixel = 1;  // 1 grey, 3 red, green, blue
  std::int64_t factor = 1;  // pane pixels per source pixel, at least 1
  std::array<std::uint8_t, 16 * kMostByVector> shuffles{};
};

ExpandPlan Make_Expand_Plan(int bytes_per_pixel, std::int64_t factor);

/// Pane pixel k is source pixel k / factor. source and bgr need the plan's slack; the bytes in
/// bgr's slack are overwritten.
void Expand_Row(const ExpandPlan& plan, const std::uint8_t* source, std::size_t pane_pixels,
                std::uint8_t* bgr);

/// Pane pixel k is the source pixel at byte k x step. source holds at least
/// (pixels - 1) x step + bytes_per_pixel bytes; step is at least bytes_per_pixel.
/// ahead: a row to be gathered soon, prefetched meanwhile; may be empty.
void Gather_Row(const std::uint8_t* source, int bytes_per_pixel, std::size_t step,
                std::size_t pixels, std::span<const std::uint8_t> ahead, std::uint8_t* bgr);

/// Prefetches the bytes.
void Prefetch_Bytes(std::span<const std::uint8_t> bytes);

}  // namespace sylvomex
