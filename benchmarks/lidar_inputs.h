// SPDX-License-Identifier: MIT
// Lidar tiles of the benchmarks, from the random words of bench_inputs.h.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench_inputs.h"

namespace sylvomex::bench {

inline constexpr std::size_t kPulseSize = 207;
inline constexpr double kTileX = 2515000, kTileY = 6859000;  // south-west corner, metres

/// A pulse of one to four echoes in the tile, packed as in the tile files.
inline std::array<char, kPulseSize> Tile_Record(std::uint64_t r) {
  std::array<char, kPulseSize> record{};
  const auto put = [&record](std::size_t offset, auto value) {
    std::memcpy(record.data() + offset, &value, sizeof value);
  };
  put(0, Random_Word(50, r));
  const auto echoes = 1 + static_cast<std::size_t>(Random_Word(51, r) % 4);
  put(8, static_cast<std::uint8_t>(echoes));
  for (std::size_t slot = 4 - echoes; slot < 4; ++slot) {
    const std::uint64_t word = 4 * r + slot;
    put(9 + 24 * slot, kTileX + 100 * Random_Unit(52, word));
    put(17 + 24 * slot, kTileY + 100 * Random_Unit(53, word));
    put(25 + 24 * slot, 165 + 30 * Random_Unit(54, word));
    put(105 + 2 * slot, static_cast<std::int16_t>(Random_Word(55, word) % 4096));
    put(113 + 8 * slot, 1000 + 50 * Random_Unit(56, word));
  }
  put(145, Random_Unit(57, r));
  put(177, kTileX + Random_Unit(58, r));
  put(185, kTileY + Random_Unit(59, r));
  put(193, 1200 + Random_Unit(60, r));
  put(201, static_cast<std::int16_t>(Random_Word(61, r) % 100));
  put(203, static_cast<std::uint32_t>(Random_Word(62, r)));
  return record;
}

/// Writes a tile with that number of pulses unless a complete one exists.
inline void Make_Tile(const std::filesystem::path& file, std::int32_t pulses) {
  std::error_code missing;
  const auto size = 4 + kPulseSize * static_cast<std::uintmax_t>(pulses);
  if (std::filesystem::file_size(file, missing) == size && !missing) return;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(&pulses), sizeof pulses);
  for (std::int32_t r = 0; r < pulses; ++r) {
    out.write(Tile_Record(static_cast<std::uint64_t>(r)).data(), kPulseSize);
  }
  if (!out.flush()) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace sylvomex::bench
