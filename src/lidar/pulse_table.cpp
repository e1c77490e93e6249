// SPDX-License-Identifier: MIT
#include "lidar/pulse_table.h"

#include <hwy/cache_control.h>
#include <hwy/highway.h>

#include <algorithm>

#include "closedlib/parallel_tasks.h"
#include "lidar/counted_file.h"
#include "platform/table.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr int kRead = 512;     // records of one file access
constexpr int kTogether = 64;  // records whose fields are copied together from the L1 cache
constexpr std::size_t kLine = 64;
constexpr std::size_t kPage = 4096;

// Non-temporal stores of whole cache lines: nothing of them is read again before the next tile,
// and the old content of a line need not be fetched. entries is aligned to a line.
template <class Value>
void Stream_Entries(const std::array<Value, kTogether>& together, Value* entries) {
  const hn::FixedTag<Value, 16 / sizeof(Value)> vector;
  for (std::size_t i = 0; i < together.size(); i += hn::Lanes(vector)) {
    hn::Stream(hn::Load(vector, together.data() + i), vector, entries + i);
  }
}

// One field of kTogether records at most to where its entries lie.
template <class Value>
void Move_Field(const std::uint8_t* field, int count, Value* entries) {
  alignas(kLine) std::array<Value, kTogether> together;
  for (int i = 0; i < count; ++i) {
    together[static_cast<std::size_t>(i)] =
        Value_At<Value>(field, static_cast<std::size_t>(i * kPulseBytes));
  }
  if (count == kTogether) {
    Stream_Entries(together, entries);
  } else {
    std::copy_n(together.begin(), count, entries);
  }
}

}  // namespace

constexpr std::array<PulseTable::ArrayField, PulseTable::kArrays> PulseTable::Fields() {
  std::array<ArrayField, kArrays> fields{};
  const auto set = [&fields](int first, int count, std::size_t offset, std::size_t bytes) {
    for (int i = 0; i < count; ++i) {
      fields[static_cast<std::size_t>(first + i)] = {offset + static_cast<std::size_t>(i) * bytes,
                                                     bytes};
    }
  };
  set(kEchoCount, 1, PulseOffset::kEchoCount, 1);
  set(kFirstEcho, 3 * kEchoSlots, PulseOffset::kEcho, 8);
  set(kFirstIntensity, kEchoSlots, PulseOffset::kIntensity, 2);
  set(kFirstRange, kEchoSlots, PulseOffset::kRange, 8);
  set(kValue, 1, PulseOffset::kValue, 8);
  set(kFirstSensor, 3, PulseOffset::kSensor, 8);
  set(kCode, 1, PulseOffset::kCode, 2);
  set(kByteA, 4, PulseOffset::kByteA, 1);
  return fields;
}

LidarEcho PulseTable::Echo_Of(std::size_t entry, int slot) const {
  return {X(slot)[entry], Y(slot)[entry], Z(slot)[entry], Intensity(slot)[entry],
          Range(slot)[entry]};
}

LidarPulse PulseTable::operator()(long long index) const {
  if (index < 1 || index > count_) Throw_Subscript(index, 1, count_);
  const auto entry = static_cast<std::size_t>(index - 1);
  LidarPulse pulse;
  pulse.EchoCount = EchoCount()[entry];
  for (int slot = 1; slot <= kEchoSlots; ++slot) pulse.Echo[slot - 1] = Echo_Of(entry, slot);
  pulse.PulseValue = Reals(kValue)[entry];
  pulse.SensorX = Reals(kFirstSensor)[entry];
  pulse.SensorY = Reals(kFirstSensor + 1)[entry];
  pulse.SensorZ = SensorZ()[entry];
  pulse.PulseCode = Array<std::int16_t>(kCode)[entry];
  pulse.PulseByteA = Bytes(kByteA)[entry];
  pulse.Gain = Gain()[entry];
  pulse.PulseByteB = Bytes(kByteB)[entry];
  pulse.PulseByteC = Bytes(kByteC)[entry];
  return pulse;
}

// Arrays that started at the same page offset would compete for the same cache sets, so each
// starts some cache lines further into its page.
void PulseTable::Make_Room(std::int32_t count) {
  constexpr auto kFields = Fields();
  std::array<std::size_t, kArrays> begins{};
  std::size_t end = 0;
  for (std::size_t k = 0; k < kArrays; ++k) {
    begins[k] = (end + kPage - 1) / kPage * kPage + 5 * k % (kPage / kLine) * kLine;
    end = begins[k] + static_cast<std::size_t>(count) * kFields[k].bytes;
  }
  if (end > memory_bytes_) {
    memory_ = std::make_unique<ScratchPages<std::uint8_t>>(end);
    memory_bytes_ = end;
  }
  for (std::size_t k = 0; k < kArrays; ++k) starts_[k] = memory_->Data() + begins[k];
  count_ = count;
  ++version_;
}

void PulseTable::Take_Records(const std::uint8_t* records, std::int64_t first, int count) {
  constexpr auto kFields = Fields();
  for (int k = 0; k < kArrays; ++k) {
    const auto [offset, bytes] = kFields[static_cast<std::size_t>(k)];
    const std::uint8_t* field = records + offset;
    if (bytes == 8) {
      Move_Field(field, count, Start<double>(k) + first);
    } else if (bytes == 2) {
      Move_Field(field, count, Start<std::int16_t>(k) + first);
    } else {
      Move_Field(field, count, Start<std::uint8_t>(k) + first);
    }
  }
}

std::int32_t Read_Pulse_Tile(const FilePath& file, PulseTable& table, int threads) {
  Make_Missing_File(file);
  const CountedFile tile(file, kPulseBytes);
  const std::int32_t count = tile.Count();
  if (count == 0) return 0;
  table.Make_Room(count);
  const auto read_all = [&] {
    Run_Tasks((count - 1) / kRead + 1, threads, [&](int task) {
      std::array<std::uint8_t, kRead * kPulseBytes> records;
      const std::int64_t first = std::int64_t{task} * kRead;
      const int here = static_cast<int>(std::min<std::int64_t>(kRead, count - first));
      tile.Read_From(first, {records.data(), static_cast<std::size_t>(here * kPulseBytes)});
      for (int i = 0; i < here; i += kTogether) {
        table.Take_Records(records.data() + i * kPulseBytes, first + i,
                           std::min(kTogether, here - i));
      }
      hwy::FlushStream();
    });
  };
  try {
    read_all();
  } catch (const Cancelled&) {
    table.Make_Room(0);
    throw;
  }
  return count;
}

}  // namespace sylvomex
