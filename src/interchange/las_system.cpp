// SPDX-License-Identifier: MIT
#include "interchange/las_system.h"

#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <optional>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "interchange/geo_keys.h"

namespace sylvomex {
namespace {

constexpr const char* kProjectionRecords = "LASF_Projection";
constexpr int kWktRecord = 2112, kKeyRecord = 34735;
// GeoTIFF keys (OGC 19-008r4): codes of the systems, and the unit of heights.
constexpr int kGeographicKey = 2048, kProjectedKey = 3072, kMapUnitsKey = 3076, kVerticalKey = 4096,
              kVerticalUnitsKey = 4099;
constexpr int kUserDefined = 32767;
constexpr int kMetre = 9001, kFoot = 9002, kSurveyFoot = 9003;
constexpr double kFootMetres = 0.3048, kSurveyFootMetres = 1200.0 / 3937;

const LasVariableRecord* Find_Record(const LasHeader& header, int id) {
  for (const LasVariableRecord& record : header.records) {
    if (record.user == kProjectionRecords && record.id == id) return &record;
  }
  return nullptr;
}

std::map<int, int> Keys_Of(const LasVariableRecord& record) {
  std::map<int, int> keys;
  for (std::size_t at = 8; at + 8 <= record.content.size(); at += 8) {
    std::uint16_t entry[4];
    std::memcpy(entry, record.content.data() + at, sizeof entry);
    if (entry[1] == 0) keys[entry[0]] = entry[3];
  }
  return keys;
}

double Height_Unit(const OGRSpatialReference& system) {
  if (system.IsVertical() == 0) return 1;
  return system.GetTargetLinearUnits("VERT_CS");
}

LasSystem From_Wkt(const LasVariableRecord& record, const std::string& name) {
  const std::string wkt(record.content.begin(), std::ranges::find(record.content, 0));
  if (wkt.empty()) return {};
  try {
    const OGRSpatialReference system = Coordinate_System(wkt);
    return {system.IsLocal() != 0 ? "" : Wkt_Of(system), Height_Unit(system),
            Leaves_Height_Unit_Open(system)};
  } catch (const Refused& refusal) {
    throw Refused(name + ": " + refusal.what());
  }
}

/// The system of a code with the unit that the map coordinates are stated in, such as a code in
/// metres with coordinates in feet.
OGRSpatialReference In_Stated_Unit(OGRSpatialReference system, int unit) {
  if (system.IsProjected() == 0) return system;
  const auto restate = [&](const char* name, double metres) {
    if (std::abs(system.GetLinearUnits() / metres - 1) < 1e-9) return;
    system.SetLinearUnitsAndUpdateParameters(name, metres);
  };
  if (unit == kMetre) restate("metre", 1);
  if (unit == kFoot) restate("foot", kFootMetres);
  if (unit == kSurveyFoot) restate("US survey foot", kSurveyFootMetres);
  return system;
}

/// Metres of the unit of heights: of the unit's key, else of the height system's. The codes that
/// GeoTIFF 1.0 gave to height systems, as 5103, are none that PROJ knows.
std::optional<double> Height_Unit_Of_Keys(int code, int unit) {
  if (unit == kMetre) return 1;
  if (unit == kFoot) return kFootMetres;
  if (unit == kSurveyFoot) return kSurveyFootMetres;
  if (code == 0) return std::nullopt;
  try {
    const OGRSpatialReference system = Coordinate_System("EPSG:" + std::to_string(code));
    if (system.IsVertical() != 0) return Height_Unit(system);
  } catch (const Refused&) {
    return std::nullopt;
  }
  return std::nullopt;
}

/// Whether the keys define the map coordinates by parameters, not by a code.
bool Is_User_Defined(const std::map<int, int>& keys) {
  const auto found = keys.find(keys.contains(kProjectedKey) ? kProjectedKey : kGeographicKey);
  return found != keys.end() && found->second == kUserDefined;
}

LasSystem From_Keys(const LasHeader& header, const std::map<int, int>& keys,
                    const std::string& name) {
  LasSystem system;
  const auto value = [&](int key) {
    const auto found = keys.find(key);
    return found == keys.end() || found->second == kUserDefined ? 0 : found->second;
  };
  const int code = value(kProjectedKey) != 0 ? value(kProjectedKey) : value(kGeographicKey);
  try {
    if (Is_User_Defined(keys)) {
      system.wkt = Defined_By_Geo_Keys(header.records);
    } else if (code != 0) {
      system.wkt = Wkt_Of(
          In_Stated_Unit(Coordinate_System("EPSG:" + std::to_string(code)), value(kMapUnitsKey)));
    }
    const auto height_metres = Height_Unit_Of_Keys(value(kVerticalKey), value(kVerticalUnitsKey));
    system.height_metres = height_metres.value_or(1);
    system.height_unit_is_open = !height_metres && !system.wkt.empty() &&
                                 Leaves_Height_Unit_Open(Coordinate_System(system.wkt));
  } catch (const Refused& refusal) {
    throw Refused(name + ": " + refusal.what());
  }
  return system;
}

/// The one that counts, or the other one where it says nothing.
LasSystem Of_Both(const LasHeader& header, const LasVariableRecord& wkt,
                  const LasVariableRecord& keys, const std::string& name) {
  const auto told = [&](bool by_keys) {
    return by_keys ? From_Keys(header, Keys_Of(keys), name) : From_Wkt(wkt, name);
  };
  LasSystem counting = told(header.keys_count);
  if (counting.wkt.empty()) return told(!header.keys_count);
  try {
    const std::string second = told(!header.keys_count).wkt;
    counting.is_told_twice = !second.empty() && !Same_Horizontal(Coordinate_System(counting.wkt),
                                                                 Coordinate_System(second));
  } catch (const Refused&) {
    counting.is_told_twice = true;  // the one that does not count is no system at all
  }
  return counting;
}

}  // namespace

LasSystem Las_System(const LasHeader& header, const std::string& name) {
  const LasVariableRecord* const wkt = Find_Record(header, kWktRecord);
  const LasVariableRecord* const keys = Find_Record(header, kKeyRecord);
  if (wkt != nullptr && keys != nullptr) return Of_Both(header, *wkt, *keys, name);
  if (wkt != nullptr) return From_Wkt(*wkt, name);
  if (keys != nullptr) return From_Keys(header, Keys_Of(*keys), name);
  return {};
}

}  // namespace sylvomex
