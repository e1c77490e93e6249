// SPDX-License-Identifier: MIT
#include "interchange/coordinate_system.h"

#include <gtest/gtest.h>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

constexpr const char* kWithHeights = "EPSG:3067+3900";  // N2000 heights

TEST(CoordinateSystemText, IsReadBackInBothForms) {
  for (const char* text : {"EPSG:3067", "EPSG:4326", kWithHeights}) {
    const OGRSpatialReference system = Coordinate_System(text);
    for (const WktForm form : {WktForm::Wkt1, WktForm::Wkt2}) {
      EXPECT_TRUE(Coordinate_System(Wkt_Of(system, form)).IsSame(&system)) << text;
    }
  }
  EXPECT_TRUE(Wkt_Of(Coordinate_System("EPSG:3067")).starts_with("PROJCRS["));
  EXPECT_TRUE(Wkt_Of(Coordinate_System("EPSG:3067"), WktForm::Wkt1).starts_with("PROJCS["));
}

TEST(CoordinateSystemText, OfACompoundSystemWithoutHeightsIsItsHorizontalPart) {
  const OGRSpatialReference flat =
      Coordinate_System(Wkt_Without_Heights(Coordinate_System(kWithHeights)));
  const OGRSpatialReference map = Coordinate_System("EPSG:3067");
  EXPECT_FALSE(flat.IsCompound());
  EXPECT_TRUE(flat.IsSame(&map));
}

TEST(CoordinateSystemText, OfThreeAxesWithoutHeightsHasTwo) {
  const OGRSpatialReference ellipsoidal = Coordinate_System("EPSG:4979");
  ASSERT_EQ(ellipsoidal.GetAxesCount(), 3);
  EXPECT_EQ(Coordinate_System(Wkt_Without_Heights(ellipsoidal)).GetAxesCount(), 2);
  OGRSpatialReference map = Coordinate_System("EPSG:3067");
  ASSERT_EQ(map.PromoteTo3D(nullptr), OGRERR_NONE);
  ASSERT_EQ(map.GetAxesCount(), 3);
  const OGRSpatialReference flat = Coordinate_System(Wkt_Without_Heights(map));
  EXPECT_EQ(flat.GetAxesCount(), 2);
  EXPECT_TRUE(Same_Horizontal(flat, Coordinate_System("EPSG:3067")));
}

TEST(CoordinateSystemText, OfAMapSystemWithoutHeightsIsItself) {
  const OGRSpatialReference map = Coordinate_System("EPSG:3067");
  EXPECT_EQ(Wkt_Without_Heights(map), Wkt_Of(map));
}

std::string Local_Grid(const std::string& unit) {
  return "LOCAL_CS[\"grid of the site\",UNIT[" + unit +
         "],AXIS[\"Easting\",EAST],AXIS[\"Northing\",NORTH]]";
}

TEST(MapMetres, AGridOfTheSitesOwnInMetresHasThem) {
  const OGRSpatialReference grid = Coordinate_System(Local_Grid("\"metre\",1"));
  EXPECT_NO_THROW(Require_Map_Metres(grid, "grid"));
  EXPECT_TRUE(Same_Horizontal(grid, Coordinate_System(Wkt_Of(grid))));
}

TEST(MapMetres, AGridInFeetAndDegreesHaveNone) {
  EXPECT_THROW(Require_Map_Metres(Coordinate_System(Local_Grid("\"foot\",0.3048")), "grid"),
               Refused);
  EXPECT_THROW(Require_Map_Metres(Coordinate_System("EPSG:4326"), "degrees"), Refused);
}

}  // namespace
}  // namespace sylvomex
