// SPDX-License-Identifier: MIT
// The first byte selects the kind of rows; the rest is the file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "overlays/overlay_rows.h"
#include "platform/run_time_error.h"

namespace {

void Read_Row(sylvomex::ListReader& rows, unsigned kind) {
  switch (kind % 5) {
    case 0:
      sylvomex::Read_Ground_Segment(rows);
      break;
    case 1:
      sylvomex::Read_Measured_Tree(rows);
      break;
    case 2:
      sylvomex::Read_Crown_Point(rows);
      break;
    case 3:
      sylvomex::Read_Tie_Point(rows);
      break;
    default:
      sylvomex::Read_Ground_Vertex(rows);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  sylvomex::ListReader rows(std::string(data + 1, data + size), "c:\\data\\fuzz.txt");
  try {
    // Every row consumes something, so the end of the file is reached.
    for (std::size_t count = 0; !rows.At_End(); ++count) {
      if (count > size) std::abort();
      Read_Row(rows, data[0]);
    }
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
