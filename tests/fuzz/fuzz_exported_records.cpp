// SPDX-License-Identifier: MIT
// The first byte chooses the kind; the rest is a file that the workstation wrote, read for an
// export.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "interchange/failures.h"
#include "interchange/record_tables.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

namespace {

using Reader = sylvomex::PointTable (*)(const sylvomex::FilePath&, const sylvomex::Site&);
constexpr Reader kReaders[] = {sylvomex::Read_Observations, sylvomex::Read_Distances,
                               sylvomex::Read_Clusters,     sylvomex::Read_Crowns,
                               sylvomex::Read_Surface,      sylvomex::Read_Trees};

void Read(Reader reader, const sylvomex::FilePath& file) {
  sylvomex::Site site;
  site.shift = sylvomex::WorldShift{2000, 3000};
  const sylvomex::PointTable table = reader(file, site);
  for (const auto& row : table.rows) {
    if (row.cells.size() > table.columns.size()) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const sylvomex::MemoryFile file({data + 1, size - 1});
  try {
    Read(kReaders[data[0] % std::size(kReaders)], file.File());
  } catch (const sylvomex::Refused&) {
    return 0;
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
