// SPDX-License-Identifier: MIT
// The input is the file of a stereo pair; the viewer is centred on its start point.
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/run_time_error.h"
#include "stereo/pair_file.h"
#include "stereo/stereo_view.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    sylvomex::ListReader reader(std::string(data, data + size), "c:\\data\\fuzz.txt");
    sylvomex::StereoState state;
    state.Pair = sylvomex::Read_Pair_File(reader);
    state.StereoSolution = state.Pair.start;
    sylvomex::Set_Picture_Size(state, 1050, 830);
    sylvomex::Center_On_Mark(state);
    if (const auto point = sylvomex::Point_Under_Pointer(state, 10, 20)) {
      sylvomex::Move_Mark(state, *point);
    }
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
