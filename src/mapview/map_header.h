// SPDX-License-Identifier: MIT
// The header of a georeferenced raster map.
#pragma once

#include <cstdint>

#include "platform/fixed_text.h"
#include "platform/list_reader.h"

namespace sylvomex {

/// A map of three bytes a pixel, red, green, blue, rows from the top without padding.
struct MapHeader {
  FixedText<60> MapFileName;
  double MapOriginX = 0;     // ground X of column 0, metres
  double MapOriginY = 0;     // ground Y of the map's lower edge, metres
  double MapPixelSizeY = 0;  // ground size of a row, metres
  double MapPixelSizeX = 0;  // ground size of a column, metres
  std::int32_t MapWidth = 0;
  std::int32_t MapHeight = 0;
  std::uint8_t MapFlag = 0;  // not used
};

/// Reads the eight items in their order. RunTimeErrors of the list reader; RunTimeError(BadContent)
/// naming file, line and item for a missing file name or a size below one pixel.
MapHeader Read_Map_Header(ListReader& header);

}  // namespace sylvomex
