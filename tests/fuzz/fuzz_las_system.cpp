// SPDX-License-Identifier: MIT
// The input is the start of a LAS file, whose records tell its coordinate system.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "interchange/failures.h"
#include "interchange/las_system.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const auto header = sylvomex::Parse_Las_Header({data, size}, size, "input");
    const auto system = sylvomex::Las_System(header, "input");
    if (!(system.height_metres > 0) || std::isinf(system.height_metres)) std::abort();
  } catch (const sylvomex::Refused&) {
    return 0;
  }
  return 0;
}
