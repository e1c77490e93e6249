// SPDX-License-Identifier: MIT
// The input is an observation file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "memory_file.h"
#include "overlays/observation_points.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file(std::span(data, size));
  try {
    const auto points = sylvomex::Read_Observation_Points(file.File());
    if (points.size() > size) std::abort();
    for (const sylvomex::ObservationPoint& point : points) {
      if (!(point.at.X > 1.0)) std::abort();
    }
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
