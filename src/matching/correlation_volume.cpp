// SPDX-License-Identifier: MIT
#include "matching/correlation_volume.h"

#include <algorithm>
#include <new>
#include <string>

#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::size_t kEntries = std::size_t{kVolumeImages} * kVolumeSide * kVolumeSide;

std::size_t Place(int image, int col, int row) {
  return static_cast<std::size_t>(image + kVolumeImages * (col + kVolumeSide * row));
}

std::uint8_t Correlation_Byte(double value) {
  return To_Byte(std::clamp(Round_Half_Even((value + 1) * 128), 0.0, 255.0));
}

}  // namespace

std::span<double> CorrelationVolume::Entries() {
  if (entries_.empty()) {
    try {
      entries_ = ZeroedArray<double>(kEntries);
    } catch (const std::bad_alloc&) {
      throw RunTimeError(Failure::OutOfMemory,
                         std::to_string(kEntries * sizeof(double)) + " bytes of correlations");
    }
  }
  return entries_.All();
}

std::span<const double> CorrelationVolume::All() { return Entries(); }

void CorrelationVolume::Require_Room(int width, int height) {
  if (width <= kVolumeSide && height <= kVolumeSide) return;
  const std::string limit = std::to_string(kVolumeSide);
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "a patch of " + std::to_string(width) + " x " + std::to_string(height) +
                         " pixels does not fit the correlation table of " + limit + " x " + limit);
}

void CorrelationVolume::Store(int image, int width, int height, std::span<const double> values) {
  Require_Room(width, height);
  const std::span<double> entries = Entries();
  Extent& stored = stored_.at(static_cast<std::size_t>(image));
  const int columns = std::max(width, stored.width), rows = std::max(height, stored.height);
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < columns; ++col) {
      const bool inside = col < width && row < height;
      entries[Place(image, col, row)] =
          inside ? values[static_cast<std::size_t>(row * width + col)] : 0;
    }
  }
  stored = {width, height};
}

std::vector<std::uint8_t> Correlation_Bytes(std::span<const double> values) {
  std::vector<std::uint8_t> bytes(values.size());
  std::transform(values.begin(), values.end(), bytes.begin(), Correlation_Byte);
  return bytes;
}

}  // namespace sylvomex
