// SPDX-License-Identifier: MIT
// The input is a colour map file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "memory_file.h"
#include "overlays/colour_map.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file(std::span(data, size));
  try {
    const sylvomex::ColourMap colours = sylvomex::Read_Colour_Map(file.File());
    for (const double value : {-1e300, -1.0, 0.0, 0.5, 1.0, 1e300}) {
      const int row = sylvomex::Colour_Row(value, 0, 1);
      if (row < 1 || row > 63) std::abort();
      static_cast<void>(colours(row));
    }
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
