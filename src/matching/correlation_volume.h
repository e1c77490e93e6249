// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "closedlib/back_projection.h"
#include "platform/zeroed_array.h"

namespace sylvomex {

/// The correlation images of all images in one table, in the layout of
/// closedlib/back_projection.h. Its 104 MB are reserved on first use; a page costs memory only once
/// it has been written.
class CorrelationVolume {
 public:
  /// Stores a correlation image, row by row, and clears what remains of a larger previous one.
  /// RunTimeError(SubscriptOutOfRange) naming both sizes for more than 1201 columns or
  /// rows, RunTimeError(OutOfMemory) when the table cannot be allocated.
  void Store(int image, int width, int height, std::span<const double> values);

  /// The whole table. RunTimeError(OutOfMemory) when it cannot be allocated.
  std::span<const double> All();

  static void Require_Room(int width, int height);

 private:
  struct Extent {
    int width = 0, height = 0;
  };
  std::span<double> Entries();

  ZeroedArray<double> entries_;
  std::array<Extent, kVolumeImages> stored_;
};

/// (value + 1) x 128, half to even, limited to 0 .. 255.
std::vector<std::uint8_t> Correlation_Bytes(std::span<const double> values);

}  // namespace sylvomex
