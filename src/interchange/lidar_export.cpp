// SPDX-License-Identifier: MIT
#include "interchange/lidar_export.h"

#include <ogr_spatialref.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "interchange/coordinate_system.h"
#include "interchange/exported_file.h"
#include "interchange/failures.h"
#include "interchange/las_writer.h"
#include "interchange/pulse_bytes.h"
#include "lidar/counted_file.h"
#include "lidar/path_header.h"
#include "lidar/pulse_record.h"
#include "lidar/tile_2004.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kPointBytes = 21;
constexpr std::int32_t kRecordsAtOnce = 4096;

bool Is_Marked(const std::uint8_t* record, std::size_t offset) {
  return std::memcmp(record + offset, kCarriedMark, sizeof kCarriedMark) == 0;
}

/// The used slots of a pulse (X above 1), from 0, the nearest to the sensor first; the fourth
/// before the third where ranges are equal.
std::vector<std::size_t> Slots_By_Range(const std::uint8_t* record) {
  std::vector<std::size_t> slots;
  const auto range = [&](std::size_t slot) {
    return Value_At<double>(record, PulseOffset::kRange + 8 * slot);
  };
  for (std::size_t slot = kEchoSlots; slot-- > 0;) {
    if (Value_At<double>(record, PulseOffset::kEcho + 24 * slot) > 1) slots.push_back(slot);
  }
  std::stable_sort(slots.begin(), slots.end(),
                   [&](std::size_t a, std::size_t b) { return range(a) < range(b); });
  return slots;
}

void Add_Pulse(const std::uint8_t* record, const Site& site, LasWriter& las) {
  const std::vector<std::size_t> slots = Slots_By_Range(record);
  const bool marked = Is_Marked(record, CarriedOffset::kMark);
  for (std::size_t i = 0; i < slots.size(); ++i) {
    const std::size_t slot = slots[i];
    WrittenPoint point;
    point.at = site.World(Value_At<Point3D>(record, PulseOffset::kEcho + 24 * slot));
    point.intensity = static_cast<std::uint16_t>(std::max<std::int16_t>(
        0, Value_At<std::int16_t>(record, PulseOffset::kIntensity + 2 * slot)));
    point.number = static_cast<int>(i + 1);
    point.returns = static_cast<int>(slots.size());
    if (marked) {
      const std::uint8_t returns = record[CarriedOffset::kReturns + slot];
      point.number = returns & 15;
      point.returns = returns >> 4;
      point.classification = record[CarriedOffset::kClass + slot];
      point.time = Value_At<double>(record, PulseOffset::kValue);
      point.angle = Value_At<std::int16_t>(record, CarriedOffset::kAngle);
      point.line = Value_At<std::uint16_t>(record, PulseOffset::kCode);
    }
    las.Add(point);
  }
}

void Add_2004(const std::uint8_t* record, const Site& site, LasWriter& las) {
  const bool marked = Is_Marked(record, Carried2004Offset::kMark);
  const bool single = std::memcmp(record + 44, record + 72, 20) == 0;
  for (std::size_t which = 0; which < (single ? 1U : 2U); ++which) {
    const std::size_t at = which == 0 ? 44 : 72;
    WrittenPoint point;
    point.at = site.World({Value_At<double>(record, at), Value_At<double>(record, at + 8),
                           Value_At<float>(record, at + 16) + 0.18F});
    point.number = static_cast<int>(which + 1);
    point.returns = single ? 1 : 2;
    if (marked) {
      const std::uint8_t returns = record[Carried2004Offset::kReturns + which];
      point.number = returns & 15;
      point.returns = returns >> 4;
      point.classification = record[Carried2004Offset::kClass + which];
      point.intensity = Value_At<std::uint16_t>(record, Carried2004Offset::kIntensity + 2 * which);
      point.time = Value_At<double>(record, Carried2004Offset::kTime);
      point.line = Value_At<std::uint16_t>(record, Carried2004Offset::kLine);
      point.angle = Value_At<std::int16_t>(record, Carried2004Offset::kAngle);
    }
    las.Add(point);
  }
}

void Add_Point(const std::uint8_t* record, const Site& site, LasWriter& las) {
  WrittenPoint point;
  point.at = site.World(
      {Value_At<double>(record, 1), Value_At<double>(record, 9), Value_At<float>(record, 17)});
  las.Add(point);
}

using AddRecord = void (*)(const std::uint8_t*, const Site&, LasWriter&);

struct RecordKind {
  std::int64_t bytes;
  AddRecord add;
};

void Add_Records(const fs::path& file, const Site& site, LasWriter& las) try {
  static constexpr std::array kKinds = {RecordKind{kPulseBytes, Add_Pulse},
                                        RecordKind{kRecord2004Bytes, Add_2004},
                                        RecordKind{kPointBytes, Add_Point}};
  const std::int32_t count = Read_Record_Count({file.string(), file});
  if (count == 0) return;
  const auto length = static_cast<std::int64_t>(fs::file_size(file));
  const auto* const kind = std::find_if(kKinds.begin(), kKinds.end(), [&](const RecordKind& k) {
    return length == kCountBytes + k.bytes * count;
  });
  if (kind == kKinds.end()) {
    throw Refused(file.string() + ": no lidar file, it counts " + std::to_string(count) +
                  " records in " + std::to_string(length) + " bytes");
  }
  const CountedFile records({file.string(), file}, kind->bytes);
  std::vector<std::uint8_t> bytes;
  for (std::int32_t first = 0; first < count; first += kRecordsAtOnce) {
    const std::int32_t here = std::min(kRecordsAtOnce, count - first);
    bytes.resize(static_cast<std::size_t>(here * kind->bytes));
    records.Read_From(first, bytes);
    for (std::int32_t i = 0; i < here; ++i) kind->add(bytes.data() + i * kind->bytes, site, las);
  }
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

/// The files that an input names, sorted.
std::vector<fs::path> Tiles_Of(const fs::path& input, const Site& site) try {
  if (Lower_Ending(input) != ".hdr") return {input};
  std::vector<fs::path> tiles;
  const std::string prefix = Read_Path_Header({input.string(), input});
  for (const FilePath& tile : site.Drives().Match(prefix + "*.bin")) tiles.push_back(tile.native);
  if (tiles.empty()) throw Refused(input.string() + ": there are no tiles at " + prefix);
  return tiles;
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

}  // namespace

std::uint64_t Export_Lidar(const fs::path& input, const Site& site, const fs::path& output,
                           const ToldShare& told) {
  if (Lower_Ending(output) != ".las") {
    throw Refused(output.string() + ": lidar is written as .las");
  }
  const std::vector<fs::path> tiles = Tiles_Of(input, site);
  ExportedFile exported(output, site.folder);
  LasWriter las(exported.Partial(), output.string(),
                Wkt_Of(Coordinate_System(site.crs), WktForm::Wkt1));
  double done = 0;
  for (const fs::path& tile : tiles) {
    Add_Records(tile, site, las);
    Tell_Share(told, ++done, static_cast<double>(tiles.size()));
  }
  las.Finish();
  exported.Commit();
  return las.Count();
}

}  // namespace sylvomex
