// SPDX-License-Identifier: MIT
// The input is a file of lidar points.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "lidar/point_file.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file({data, size});
  try {
    if (21 * sylvomex::Read_Point_File(file.File()).size() > size) std::abort();
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
