// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace sylvomex::demo {

struct LazEcho {
  std::array<std::int32_t, 3> position{};  // X, Y, Z less the offset, mm
  std::uint16_t intensity = 0;
  int number = 1, returns = 1;  // 1 to 7
  double time = 0;              // s
};

inline constexpr std::uint32_t kLazChunk = 50'000;  // echoes

/// A compressed LAS file of version 1.2 and point format 1 (items POINT10 and GPSTIME11 of version
/// 2). echoes: one or more; offset: of the positions, m; epsg: code of the map system.
std::string Laz_File(std::span<const LazEcho> echoes, const std::array<double, 3>& offset,
                     std::uint16_t epsg);

}  // namespace sylvomex::demo
