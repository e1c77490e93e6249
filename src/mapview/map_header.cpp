// SPDX-License-Identifier: MIT
#include "mapview/map_header.h"

#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

std::int32_t Read_Size(ListReader& header, const char* what) {
  const std::int32_t size = header.Read_Int32();
  if (size >= 1) return size;
  throw header.Failure_Here(Failure::BadContent,
                            std::string("the map has ") + std::to_string(size) + " " + what);
}

}  // namespace

MapHeader Read_Map_Header(ListReader& header) {
  MapHeader map;
  map.MapFileName = header.Read_Text();
  if (map.MapFileName.Trimmed().empty()) {
    throw header.Failure_Here(Failure::BadContent, "no map file is named");
  }
  map.MapOriginX = header.Read_Double();
  map.MapOriginY = header.Read_Double();
  map.MapPixelSizeY = header.Read_Double();
  map.MapPixelSizeX = header.Read_Double();
  map.MapWidth = Read_Size(header, "columns");
  map.MapHeight = Read_Size(header, "rows");
  map.MapFlag = header.Read_Byte();
  return map;
}

}  // namespace sylvomex
