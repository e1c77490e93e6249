// SPDX-License-Identifier: MIT
// The input is a tile file.
#include <cstddef>
#include <cstdint>
#include <span>

#include "heightmodels/tin_tiles.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file(std::span(data, size));
  try {
    const auto numbers = sylvomex::Read_Tin_Tile(file.File());
    if (!numbers.empty() && 4 * (numbers.size() + 1) > size) __builtin_trap();
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
