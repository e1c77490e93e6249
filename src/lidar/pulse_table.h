// SPDX-License-Identifier: MIT
// The pulses of a tile, field by field: one array a field, so that a loop over positions or
// ranges touches nothing else.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "lidar/pulse_record.h"
#include "platform/drive_map.h"
#include "platform/huge_pages.h"

namespace sylvomex {

class PulseTable {
 public:
  [[nodiscard]] std::int32_t Count() const { return count_; }

  /// Changes with every reading that modified the table.
  [[nodiscard]] std::uint64_t Version() const { return version_; }

  /// Pulse of an index from 1 to Count(); RunTimeError(SubscriptOutOfRange) otherwise.
  LidarPulse operator()(long long index) const;

  // Arrays of Count() entries, entry 0 is pulse 1; slots from 1 to 4.
  [[nodiscard]] std::span<const double> X(int slot) const { return Reals(3 * slot - 2); }
  [[nodiscard]] std::span<const double> Y(int slot) const { return Reals(3 * slot - 1); }
  [[nodiscard]] std::span<const double> Z(int slot) const { return Reals(3 * slot); }
  [[nodiscard]] std::span<const std::int16_t> Intensity(int slot) const {
    return Array<std::int16_t>(kFirstIntensity + slot - 1);
  }
  [[nodiscard]] std::span<const double> Range(int slot) const {
    return Reals(kFirstRange + slot - 1);
  }
  [[nodiscard]] std::span<const double> SensorZ() const { return Reals(kFirstSensor + 2); }
  [[nodiscard]] std::span<const std::uint8_t> EchoCount() const { return Bytes(kEchoCount); }
  [[nodiscard]] std::span<const std::uint8_t> Gain() const { return Bytes(kGain); }

 private:
  friend std::int32_t Read_Pulse_Tile(const FilePath& file, PulseTable& table, int threads);

  /// The arrays in the order of the record's fields.
  enum ArrayNumber {
    kEchoCount,
    kFirstEcho,
    kFirstIntensity = kFirstEcho + 3 * kEchoSlots,
    kFirstRange = kFirstIntensity + kEchoSlots,
    kValue = kFirstRange + kEchoSlots,
    kFirstSensor,
    kCode = kFirstSensor + 3,
    kByteA,
    kGain,
    kByteB,
    kByteC,
    kArrays
  };
  struct ArrayField {
    std::size_t offset = 0;  // in a file record
    std::size_t bytes = 0;   // of an entry
  };
  static constexpr std::array<ArrayField, kArrays> Fields();

  template <class Value>
  [[nodiscard]] Value* Start(int array) const {
    return reinterpret_cast<Value*>(starts_[static_cast<std::size_t>(array)]);
  }
  template <class Value>
  [[nodiscard]] std::span<const Value> Array(int array) const {
    return {Start<const Value>(array), static_cast<std::size_t>(count_)};
  }
  [[nodiscard]] std::span<const double> Reals(int array) const { return Array<double>(array); }
  [[nodiscard]] std::span<const std::uint8_t> Bytes(int array) const {
    return Array<std::uint8_t>(array);
  }
  [[nodiscard]] LidarEcho Echo_Of(std::size_t entry, int slot) const;

  void Make_Room(std::int32_t count);
  void Take_Records(const std::uint8_t* records, std::int64_t first, int count);

  std::unique_ptr<ScratchPages<std::uint8_t>> memory_;
  std::size_t memory_bytes_ = 0;
  std::array<std::uint8_t*, kArrays> starts_{};
  std::int32_t count_ = 0;
  std::uint64_t version_ = 0;
};

/// Reads a tile into the table and returns its count. A count of 0 leaves the table unchanged;
/// a missing file is created empty and counts 0. threads: 1 uses the calling
/// thread, 0 uses all; the table is the same.
///
/// RunTimeError(BadContent) for a negative count and for a file too short for its count, naming
/// both sizes; the table is left unchanged. RunTimeError(FileFailure) when the reading itself
/// fails; the table is then empty.
std::int32_t Read_Pulse_Tile(const FilePath& file, PulseTable& table, int threads = 0);

}  // namespace sylvomex
