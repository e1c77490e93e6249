// SPDX-License-Identifier: MIT
// The input is a whole LAS file, of which header, records and points are read.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "interchange/failures.h"
#include "interchange/las_header.h"
#include "interchange/las_points.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const sylvomex::LasHeader header = sylvomex::Parse_Las_Header({data, size}, size, "input");
    if (header.compressed) return 0;
    const auto bytes = static_cast<std::uint64_t>(header.record_bytes);
    if (header.points_at + header.count * bytes > size) std::abort();
    std::uint64_t sum = 0;
    for (std::uint64_t i = 0; i < header.count; ++i) {
      const sylvomex::LasPoint point(data + header.points_at + i * bytes, header.format);
      sum += static_cast<std::uint64_t>(point.Position(2)) + point.Line() + point.Returns();
      if (sylvomex::Las_Has_Time(header.format)) sum += sylvomex::Time_Key(point.Time());
    }
    if (sum == 1) return 0;
  } catch (const sylvomex::Refused&) {
    return 0;
  }
  return 0;
}
