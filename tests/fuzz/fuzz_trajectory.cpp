// SPDX-License-Identifier: MIT
// The input is a trajectory: a CSV table, or anything else as an SBET. Positions of the latter are
// reprojected, so their number is kept low.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "interchange/failures.h"
#include "interchange/trajectory.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  const sylvomex::MemoryFile file({data, size});
  try {
    const auto trajectory = sylvomex::Read_Trajectory(file.File().native, "EPSG:3067");
    if (trajectory.Count() < 2 || trajectory.Count() > size) std::abort();
    if (!(trajectory.First_Time() <= trajectory.Last_Time())) std::abort();
    const double middle = trajectory.First_Time() / 2 + trajectory.Last_Time() / 2;
    if (std::isnan(trajectory.At(middle).X)) std::abort();
  } catch (const sylvomex::Refused&) {
    return 0;
  }
  return 0;
}
