// SPDX-License-Identifier: MIT
// The input is a file of one point, read as a numbered point and as a plot location.
#include <cstddef>
#include <cstdint>
#include <span>

#include "memory_file.h"
#include "platform/run_time_error.h"
#include "solver/single_point.h"

namespace {

template <class Read>
void Try(Read&& read) {
  try {
    read();
  } catch (const sylvomex::RunTimeError&) {
    return;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file(std::span(data, size));
  Try([&] { sylvomex::Read_Numbered_Point(file.File()); });
  Try([&] { sylvomex::Read_Plot_Location(file.File()); });
  return 0;
}
