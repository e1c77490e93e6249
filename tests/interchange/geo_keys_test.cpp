// SPDX-License-Identifier: MIT
#include "interchange/geo_keys.h"

#include <gtest/gtest.h>

#include <cstring>

#include "interchange/coordinate_system.h"
#include "interchange/las_system.h"

namespace sylvomex {
namespace {

constexpr std::uint16_t kUserDefined = 32767, kInDoubles = 34736;

struct Key {
  std::uint16_t id = 0, place = 0, count = 1, value = 0;
};

template <class Value>
LasVariableRecord Record(int id, const std::vector<Value>& values) {
  LasVariableRecord record{"LASF_Projection", id, {}};
  record.content.resize(values.size() * sizeof(Value));
  std::memcpy(record.content.data(), values.data(), record.content.size());
  return record;
}

LasVariableRecord Directory(const std::vector<Key>& keys) {
  std::vector<std::uint16_t> numbers = {1, 1, 0, static_cast<std::uint16_t>(keys.size())};
  for (const Key& key : keys) {
    numbers.insert(numbers.end(), {key.id, key.place, key.count, key.value});
  }
  return Record(34735, numbers);
}

/// Transverse Mercator on GRS 80 (ETRS89), its five numbers among the doubles.
LasHeader Own_Mercator(double longitude, double easting, double scale) {
  LasHeader header;
  header.records = {Directory({{1024, 0, 1, 1},
                               {2048, 0, 1, 4258},
                               {3072, 0, 1, kUserDefined},
                               {3074, 0, 1, kUserDefined},
                               {3075, 0, 1, 1},
                               {3076, 0, 1, 9001},
                               {3080, kInDoubles, 1, 0},
                               {3081, kInDoubles, 1, 1},
                               {3082, kInDoubles, 1, 2},
                               {3083, kInDoubles, 1, 3},
                               {3092, kInDoubles, 1, 4}}),
                    Record<double>(34736, {longitude, 0, easting, 0, scale})};
  return header;
}

TEST(GeoKeys, AProjectionByItsParametersIsTheOneOfItsCode) {
  const std::string wkt = Las_System(Own_Mercator(27, 500000, 0.9996), "a.las").wkt;
  ASSERT_NE(wkt, "");
  EXPECT_TRUE(Same_Horizontal(Coordinate_System(wkt), Coordinate_System("EPSG:3067")));
}

TEST(GeoKeys, AProjectionOfOnesOwnKeepsItsParameters) {
  const std::string wkt = Las_System(Own_Mercator(24.7, 123456.5, 1), "a.las").wkt;
  ASSERT_NE(wkt, "");
  const OGRSpatialReference system = Coordinate_System(wkt);
  EXPECT_TRUE(system.IsProjected());
  EXPECT_EQ(system.GetProjParm("central_meridian"), 24.7);
  EXPECT_EQ(system.GetProjParm("false_easting"), 123456.5);
  EXPECT_EQ(system.GetProjParm("scale_factor"), 1);
}

LasHeader By_Code(std::uint16_t code, std::uint16_t unit) {
  LasHeader header;
  header.records = {Directory({{1024, 0, 1, 1}, {3072, 0, 1, code}, {3076, 0, 1, unit}})};
  return header;
}

TEST(GeoKeys, ACodeInMetresWithCoordinatesInFeetIsTakenInFeet) {
  // North Carolina's system in metres, EPSG:32119, has the false easting 609601.22 m.
  const OGRSpatialReference feet = Coordinate_System(Las_System(By_Code(32119, 9003), "a.las").wkt);
  EXPECT_NEAR(feet.GetLinearUnits(), 1200.0 / 3937, 1e-15);
  EXPECT_NEAR(feet.GetProjParm("false_easting"), 609601.22 * 3937 / 1200, 1e-6);
  const OGRSpatialReference short_feet =
      Coordinate_System(Las_System(By_Code(32119, 9002), "a.las").wkt);
  EXPECT_NEAR(short_feet.GetProjParm("false_easting"), 609601.22 / 0.3048, 1e-6);
}

TEST(GeoKeys, ACodeWhoseUnitIsTheStatedOneIsTheCodesSystem) {
  for (const auto& [code, unit] : {std::pair(3067, 9001), std::pair(2264, 9003)}) {
    const LasHeader header =
        By_Code(static_cast<std::uint16_t>(code), static_cast<std::uint16_t>(unit));
    EXPECT_TRUE(Same_Horizontal(Coordinate_System(Las_System(header, "a.las").wkt),
                                Coordinate_System("EPSG:" + std::to_string(code))));
  }
}

LasHeader With_Heights(std::uint16_t map, std::vector<Key> further) {
  std::vector<Key> keys = {{1024, 0, 1, 1}, {3072, 0, 1, map}};
  keys.insert(keys.end(), further.begin(), further.end());
  LasHeader header;
  header.records = {Directory(keys)};
  return header;
}

constexpr std::uint16_t kHeights = 4096, kHeightUnit = 4099;
constexpr std::uint16_t kHeightsOfGeoTiff10 = 5103;  // NAVD 1988; no code of EPSG's

TEST(GeoKeys, HeightCodesOfGeoTiff10AreTakenWithTheUnitBesideThem) {
  for (const auto& [unit, metres] :
       {std::pair(9001, 1.0), std::pair(9002, 0.3048), std::pair(9003, 1200.0 / 3937)}) {
    const LasSystem system =
        Las_System(With_Heights(26917, {{kHeights, 0, 1, kHeightsOfGeoTiff10},
                                        {kHeightUnit, 0, 1, static_cast<std::uint16_t>(unit)}}),
                   "a.las");
    EXPECT_TRUE(Same_Horizontal(Coordinate_System(system.wkt), Coordinate_System("EPSG:26917")));
    EXPECT_EQ(system.height_metres, metres);
    EXPECT_FALSE(system.height_unit_is_open);
  }
}

TEST(GeoKeys, AMapInFeetWithoutAUnitOfHeightsLeavesItOpen) {
  constexpr std::uint16_t kMapInFeet = 2264, kMapInMetres = 32119, kHeightsInFeet = 6360;
  EXPECT_TRUE(Las_System(With_Heights(kMapInFeet, {}), "a.las").height_unit_is_open);
  EXPECT_EQ(Las_System(With_Heights(kMapInFeet, {}), "a.las").height_metres, 1);
  EXPECT_TRUE(Las_System(With_Heights(kMapInFeet, {{kHeights, 0, 1, kHeightsOfGeoTiff10}}), "a.las")
                  .height_unit_is_open);
  EXPECT_FALSE(Las_System(With_Heights(kMapInFeet, {{kHeights, 0, 1, kHeightsInFeet}}), "a.las")
                   .height_unit_is_open);
  EXPECT_FALSE(Las_System(With_Heights(kMapInMetres, {}), "a.las").height_unit_is_open);
}

/// The keys of Gauss-Krueger zone 25 (EPSG:3879) beside the WKT of a system.
LasHeader Keys_And_Wkt(const std::string& wkt) {
  LasHeader header = By_Code(3879, 9001);
  header.records.push_back({"LASF_Projection", 2112, {wkt.begin(), wkt.end()}});
  return header;
}

TEST(GeoKeys, OfKeysAndWktTheOneCountsThatTheHeaderPrefers) {
  LasHeader header = Keys_And_Wkt(Wkt_Of(Coordinate_System("EPSG:3067")));
  const LasSystem by_wkt = Las_System(header, "a.las");
  EXPECT_TRUE(Same_Horizontal(Coordinate_System(by_wkt.wkt), Coordinate_System("EPSG:3067")));
  EXPECT_TRUE(by_wkt.is_told_twice);
  header.keys_count = true;
  const LasSystem by_keys = Las_System(header, "a.las");
  EXPECT_TRUE(Same_Horizontal(Coordinate_System(by_keys.wkt), Coordinate_System("EPSG:3879")));
  EXPECT_TRUE(by_keys.is_told_twice);
}

TEST(GeoKeys, KeysAndWktOfOneSystemAreNoContradiction) {
  EXPECT_FALSE(
      Las_System(Keys_And_Wkt(Wkt_Of(Coordinate_System("EPSG:3879"))), "a.las").is_told_twice);
}

TEST(GeoKeys, OfKeysAndWktTheOneThatSaysSomethingCounts) {
  const LasSystem system = Las_System(Keys_And_Wkt(""), "a.las");
  ASSERT_NE(system.wkt, "");
  EXPECT_TRUE(Same_Horizontal(Coordinate_System(system.wkt), Coordinate_System("EPSG:3879")));
  EXPECT_FALSE(system.is_told_twice);
}

TEST(GeoKeys, KeysThatDefineNothingTellNoSystem) {
  LasHeader header;
  header.records = {Directory({{1024, 0, 1, 1}, {3072, 0, 1, kUserDefined}})};
  EXPECT_EQ(Las_System(header, "a.las").wkt, "");
  header.records.front().content.resize(11);  // cut within a key
  EXPECT_EQ(Defined_By_Geo_Keys(header.records), "");
  EXPECT_EQ(Defined_By_Geo_Keys({}), "");
}

TEST(GeoKeys, NumbersThatPointBehindTheDoublesDoNoHarm) {
  LasHeader header = Own_Mercator(27, 500000, 0.9996);
  header.records.back().content.resize(8);
  EXPECT_NO_THROW(Las_System(header, "a.las"));
}

}  // namespace
}  // namespace sylvomex
