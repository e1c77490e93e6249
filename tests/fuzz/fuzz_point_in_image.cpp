// SPDX-License-Identifier: MIT
// The input is a point-in-image file.
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/run_time_error.h"
#include "solver/point_in_image.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sylvomex::ListReader list(std::string(data, data + size), "c:\\data\\fuzz.txt");
  try {
    sylvomex::Read_Point_In_Image(list);
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
