// SPDX-License-Identifier: MIT
#include "interchange/las_system.h"

#include <ogr_spatialref.h>

#include <cstring>
#include <map>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "interchange/geo_keys.h"

namespace sylvomex {
namespace {

constexpr const char* kProjectionRecords = "LASF_Projection";
constexpr int kWktRecord = 2112, kKeyRecord = 34735;
// GeoTIFF keys (OGC 19-008r4): codes of the systems, and the unit of heights.
constexpr int kGeographicKey = 2048, kProjectedKey = 3072, kVerticalKey = 4096,
              kVerticalUnitsKey = 4099;
constexpr int kUserDefined = 32767;
constexpr int kFoot = 9002, kSurveyFoot = 9003;

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
  const auto* text = reinterpret_cast<const char*>(record.content.data());
  const std::string wkt(text, strnlen(text, record.content.size()));
  if (wkt.empty()) return {};
  try {
    const OGRSpatialReference system = Coordinate_System(wkt);
    return {system.IsLocal() != 0 ? "" : Wkt_Of(system), Height_Unit(system)};
  } catch (const Refused& refusal) {
    throw Refused(name + ": " + refusal.what());
  }
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
      system.wkt = Wkt_Of(Coordinate_System("EPSG:" + std::to_string(code)));
    }
    if (value(kVerticalKey) >= 5000) {  // lower ones are codes of datums
      system.height_metres =
          Height_Unit(Coordinate_System("EPSG:" + std::to_string(value(kVerticalKey))));
    }
  } catch (const Refused& refusal) {
    throw Refused(name + ": " + refusal.what());
  }
  if (value(kVerticalUnitsKey) == kFoot) system.height_metres = 0.3048;
  if (value(kVerticalUnitsKey) == kSurveyFoot) system.height_metres = 1200.0 / 3937;
  return system;
}

}  // namespace

LasSystem Las_System(const LasHeader& header, const std::string& name) {
  if (const LasVariableRecord* wkt = Find_Record(header, kWktRecord)) return From_Wkt(*wkt, name);
  if (const LasVariableRecord* keys = Find_Record(header, kKeyRecord)) {
    return From_Keys(header, Keys_Of(*keys), name);
  }
  return {};
}

}  // namespace sylvomex
