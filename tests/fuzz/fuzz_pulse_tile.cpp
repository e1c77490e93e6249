// SPDX-License-Identifier: MIT
// The input is a pulse tile, read into a table that already holds another one.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "lidar/echo_listing.h"
#include "lidar/pulse_table.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

namespace {

double No_Ground(double, double) { return -99; }

void Walk(const sylvomex::PulseTable& table) {
  std::string lines;
  for (std::int32_t i = 1; i <= table.Count(); ++i) {
    lines.clear();
    if (!sylvomex::List_Pulse(
            table(i), No_Ground, [] {}, lines))
      break;
  }
  std::vector<sylvomex::SelectedEcho> echoes;
  sylvomex::Select_Echoes_2006(table, 0, 0, echoes);
  sylvomex::Select_Echoes_2007(table, 0, 0, No_Ground, echoes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sylvomex::MemoryFile file({data, size});
  sylvomex::PulseTable table;
  std::int32_t count = 0;
  try {
    count = sylvomex::Read_Pulse_Tile(file.File(), table, 1);
  } catch (const sylvomex::RunTimeError&) {
    if (table.Count() != 0) std::abort();
    return 0;
  }
  if (count != table.Count() || 207 * static_cast<std::uint64_t>(count) > size) std::abort();
  try {
    Walk(table);
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
