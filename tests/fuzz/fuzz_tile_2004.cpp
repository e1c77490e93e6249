// SPDX-License-Identifier: MIT
// The input is a tile of 2004, read record by record and with a stride of 25 bytes.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "lidar/cell_heights.h"
#include "lidar/tile_2004.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file({data, size});
  for (const std::int64_t stride : {100, 25}) {
    try {
      const auto records = sylvomex::Read_Tile_2004(file.File(), stride);
      const sylvomex::LastEchoes echoes(records);
      for (const auto& record : records) {
        // An echo lies in the cell around itself.
        const bool is_found = echoes.Of_Cell(record.LastX, record.LastY, 1).has_value();
        if (is_found != (std::isfinite(record.LastX) && std::isfinite(record.LastY))) std::abort();
      }
    } catch (const sylvomex::RunTimeError&) {
      continue;
    }
  }
  return 0;
}
