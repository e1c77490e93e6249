// SPDX-License-Identifier: MIT
// Point records of LAS files: their fields, and reading them block by block.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "interchange/echo_record.h"
#include "platform/files.h"

namespace sylvomex {

inline constexpr std::uint64_t kLasBlock = 1 << 16;  // points

/// The fields of one point record; formats 0 to 5 and 6 to 10 lay them out differently.
class LasPoint {
 public:
  LasPoint(const std::uint8_t* bytes, int format) : bytes_(bytes), later_(format >= 6) {}

  [[nodiscard]] std::int32_t Position(std::size_t axis) const { return At<std::int32_t>(4 * axis); }
  [[nodiscard]] std::uint16_t Intensity() const { return At<std::uint16_t>(12); }
  /// As EchoRecord::returns.
  [[nodiscard]] std::uint8_t Returns() const {
    const std::uint8_t bits = bytes_[14];
    if (later_) return bits;
    return static_cast<std::uint8_t>((bits & 7U) | ((bits >> 3U & 7U) << 4U));
  }
  [[nodiscard]] std::uint8_t Classification() const {
    return later_ ? bytes_[16] : bytes_[15] & 31U;
  }
  [[nodiscard]] std::int16_t Angle() const {
    if (later_) return At<std::int16_t>(18);
    return static_cast<std::int16_t>(static_cast<std::int8_t>(bytes_[16]) * 500 / 3);
  }
  [[nodiscard]] std::uint16_t Line() const { return At<std::uint16_t>(later_ ? 20 : 18); }
  /// Of formats with times only.
  [[nodiscard]] double Time() const { return At<double>(later_ ? 22 : 20); }

 private:
  template <class Value>
  [[nodiscard]] Value At(std::size_t offset) const {
    Value value;
    std::memcpy(&value, bytes_ + offset, sizeof value);
    return value;
  }

  const std::uint8_t* bytes_;
  bool later_;
};

/// Consecutive points of one source, counted from 0.
struct LasRun {
  std::uint32_t source = 0;
  std::uint64_t first = 0, count = 0;
};

/// The points of all sources one after the other, in runs of kLasBlock; those of a source begin
/// anew with its first point.
std::vector<LasRun> Las_Runs(std::span<const EchoSource> sources);

/// Reads the point records of a run of a source. Refused, naming the file, when it became shorter.
void Read_Run(const EchoSource& source, const LasRun& run, std::vector<std::uint8_t>& bytes);

/// A run of consecutive point records of one source.
struct LasBlock {
  std::uint32_t source = 0;
  std::vector<std::uint8_t> bytes;
  std::uint64_t count = 0;
  std::uint64_t pulses_before = 0;  // untimed pulses begun before this block
  int returns_before = 0;           // EchoRecord::returns of the point before, 255 for none
};

/// The blocks of all sources one after the other.
class LasBlockReader {
 public:
  explicit LasBlockReader(std::span<const EchoSource> sources);

  /// Reads the next block; false behind the last one. Refused when a file became shorter.
  bool Next(LasBlock& block);

 private:
  void Count_Untimed(LasBlock& block);

  std::span<const EchoSource> sources_;
  std::vector<LasRun> runs_;
  std::size_t next_ = 0;
  std::uint64_t pulses_ = 0;
  int last_returns_ = 255;
};

/// Whether a point of an untimed source begins a pulse: its return number does not rise, or the
/// number of returns is another.
inline bool Begins_Pulse(int before, int now) {
  return before == 255 || (now & 15) <= (before & 15) || now >> 4 != before >> 4;
}

}  // namespace sylvomex
