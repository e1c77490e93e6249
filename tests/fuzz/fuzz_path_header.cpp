// SPDX-License-Identifier: MIT
// The input is a path header; the name of a tile is made from it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "lidar/path_header.h"
#include "lidar/tile_grid.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file({data, size});
  try {
    const std::string prefix = sylvomex::Read_Path_Header(file.File());
    if (prefix.find('\n') != std::string::npos) std::abort();
    const auto name = sylvomex::Tile_Name(prefix, sylvomex::Campaign::Als2006, 2516431, 6857012);
    if (name != prefix + "064_070.bin") std::abort();
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
