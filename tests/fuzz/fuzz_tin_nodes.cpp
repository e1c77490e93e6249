// SPDX-License-Identifier: MIT
// The input is a node file.
#include <cstddef>
#include <cstdint>
#include <span>

#include "heightmodels/tin_model.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file(std::span(data, size));
  sylvomex::TinModel model;
  try {
    sylvomex::Read_Tin_Nodes(file.File(), 0.3, model);
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  if (!(model.TileMinX <= model.TileMaxX && model.TileMinY <= model.TileMaxY)) __builtin_trap();
  return 0;
}
