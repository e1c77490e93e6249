// SPDX-License-Identifier: MIT
#include "interchange/site.h"

#include <gtest/gtest.h>

#include "interchange/failures.h"
#include "interchange/import_transaction.h"
#include "interchange/site_text.h"
#include "lidar/tile_grid.h"
#include "overlays/jet_colours.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

bool Has_Three_Digits(double X, double Y) {
  for (const Campaign campaign : {Campaign::Als2004, Campaign::Als2006, Campaign::Als2007}) {
    const TileIndex tile = Tile_Index(campaign, X, Y);
    if (!(tile.col >= 0 && tile.col <= 999 && tile.row >= 0 && tile.row <= 999)) return false;
  }
  return true;
}

TEST(InitSite, KeepsTheCoordinateSystem) {
  const TemporaryFolder folder;
  Init_Site(folder.Path() / "new", "EPSG:3067");
  const Site site = Open_Site(folder.Path() / "new");
  EXPECT_EQ(site.crs, "EPSG:3067");
  EXPECT_FALSE(site.shift.has_value());
  EXPECT_TRUE(folder.Has("new/c/data"));  // without it the workstation does not start
}

TEST(InitSite, HasTheColoursAndFoldersThatCommandsNeed) {
  const TemporaryFolder folder;
  Init_Site(folder.Path(), "EPSG:3067");
  EXPECT_EQ(folder.Read("c/data/JetColorMAP.csv"), Jet_Colour_Map());
  for (const char* inside : {"c/apu", "c/data/vektorit", "c/temp", "d", "e/lk", "f/temp/AVI"}) {
    EXPECT_TRUE(folder.Has(inside)) << inside;
  }
}

TEST(InitSite, KeepsAColourMapThatIsThere) {
  const TemporaryFolder folder;
  folder.Write("c/data/JetColorMAP.csv", "1,2,3\n");
  Init_Site(folder.Path(), "EPSG:3067");
  EXPECT_EQ(folder.Read("c/data/JetColorMAP.csv"), "1,2,3\n");
}

TEST(InitSite, RefusesAFolderThatIsASite) {
  const TemporaryFolder folder;
  Init_Site(folder.Path(), "EPSG:3067");
  const std::string before = folder.Read("site.toml");
  EXPECT_THROW(Init_Site(folder.Path(), "EPSG:3067"), Refused);
  EXPECT_EQ(folder.Read("site.toml"), before);
}

TEST(InitSite, RefusesACoordinateSystemThatDoesNotExist) {
  const TemporaryFolder folder;
  EXPECT_THROW(Init_Site(folder.Path() / "a", "EPSG:999999"), Refused);
  EXPECT_THROW(Init_Site(folder.Path() / "a", "no system"), Refused);
  EXPECT_THROW(Init_Site(folder.Path() / "a", ""), Refused);
  EXPECT_FALSE(folder.Has("a"));
}

TEST(InitSite, RefusesDegreesAndFeet) {
  const TemporaryFolder folder;
  EXPECT_THROW(Init_Site(folder.Path() / "a", "EPSG:4326"), Refused);
  EXPECT_THROW(Init_Site(folder.Path() / "a", "EPSG:2263"), Refused);  // New York, US feet
}

TEST(InitSite, TakesProjStringsAndCompoundSystems) {
  const TemporaryFolder folder;
  Init_Site(folder.Path() / "a", "+proj=utm +zone=35 +ellps=GRS80 +units=m");
  Init_Site(folder.Path() / "b", "EPSG:3067+3900");
  EXPECT_EQ(Open_Site(folder.Path() / "b").crs, "EPSG:3067+3900");
}

TEST(OpenSite, RefusesAFolderWithoutSiteFile) {
  const TemporaryFolder folder;
  EXPECT_THROW(Open_Site(folder.Path()), Refused);
  EXPECT_THROW(Open_Site(folder.Path() / "missing"), Refused);
}

TEST(OpenSite, RefusesADamagedSiteFileWithItsLine) {
  const TemporaryFolder folder;
  folder.Write("site.toml", "crs = \"EPSG:3067\"\nshift = [1, \n");
  try {
    Open_Site(folder.Path());
    FAIL() << "it was read";
  } catch (const Refused& refusal) {
    EXPECT_NE(std::string(refusal.what()).find("site.toml, line "), std::string::npos);
  }
}

TEST(SiteText, ReturnsEveryField) {
  Site site;
  site.crs = "EPSG:3067";
  site.shift = WorldShift{-2180000, 150000};
  site.imports.push_back({"lidar",
                          "2026-06-01T10:00:00Z",
                          {{"a \"b\".las", "00ff", 12}, {"/x/c.las", "11", 0}},
                          {{"campaign", "2007"}}});
  site.conventions.push_back({"aa", "bb", "degrees"});
  const Site read = Parse_Site(Site_Text(site), "site.toml");
  EXPECT_EQ(read.crs, site.crs);
  EXPECT_EQ(read.shift, site.shift);
  ASSERT_EQ(read.imports.size(), 1U);
  EXPECT_EQ(read.imports[0].kind, "lidar");
  EXPECT_EQ(read.imports[0].time, "2026-06-01T10:00:00Z");
  ASSERT_EQ(read.imports[0].files.size(), 2U);
  EXPECT_EQ(read.imports[0].files[0].path, "a \"b\".las");
  EXPECT_EQ(read.imports[0].files[0].checksum, "00ff");
  EXPECT_EQ(read.imports[0].files[0].bytes, 12U);
  EXPECT_EQ(read.imports[0].settings.at("campaign"), "2007");
  ASSERT_EQ(read.conventions.size(), 1U);
  EXPECT_EQ(read.conventions[0].name, "degrees");
}

TEST(SiteText, NamesOfEveryCharacterComeBack) {
  for (const char* path : {"a\nb", "a'''\nb\"\"\"c", "'\"\\", "\xC3\xA4'\\.tif", "\t\x01\x7F",
                           "\xE2\x80\xA8\"\n'", "", "#[x]\r\n"}) {
    Site site;
    site.crs = "EPSG:3067";
    site.imports.push_back({"images", "", {{path, "00", 1}}, {}});
    const std::string text = Site_Text(site);
    EXPECT_EQ(Parse_Site(text, "site.toml").imports.at(0).files.at(0).path, path) << text;
  }
}

TEST(SiteText, RefusesAShiftOfAnotherKind) {
  EXPECT_THROW(Parse_Site("crs=\"EPSG:3067\"\nshift=[1,2]", "s"), Refused);
  EXPECT_THROW(Parse_Site("crs=\"EPSG:3067\"\nshift=[1,2,3]", "s"), Refused);
  EXPECT_THROW(Parse_Site("crs=\"EPSG:3067\"\nshift=[\"a\",2,0]", "s"), Refused);
  EXPECT_THROW(Parse_Site("shift=[1,2,0]", "s"), Refused);
}

TEST(ShiftFor, BringsAnyPlaceIntoThreeDigitsByWholeKilometres) {
  for (const auto& [X, Y] : {std::pair{385123.4, 6672000.9}, {-12345.0, 17.0}, {500000.0, 9e6}}) {
    const WorldShift shift = Shift_For({X, Y, X + 20000, Y + 30000});
    EXPECT_EQ(std::fmod(shift.X, 1000), 0);
    EXPECT_EQ(std::fmod(shift.Y, 1000), 0);
    EXPECT_TRUE(Has_Three_Digits(X - shift.X, Y - shift.Y));
    EXPECT_TRUE(Has_Three_Digits(X + 20000 - shift.X, Y + 30000 - shift.Y));
  }
}

TEST(ShiftFor, LeavesAPlaceThatFitsWhereItIs) {
  EXPECT_EQ(Shift_For({2534000, 6870000, 2536000, 6872000}), (WorldShift{0, 0}));
}

TEST(ShiftFor, RefusesMoreThanTheTilesHold) {
  EXPECT_THROW(Shift_For({0, 0, 120000, 10}), Refused);
  EXPECT_THROW(Shift_For({0, 0, std::nan(""), 10}), Refused);
}

TEST(TakeExtent, ChoosesOnceAndKeeps) {
  Site site;
  site.crs = "EPSG:3067";
  Take_Extent(site, {385000, 6672000, 386000, 6673000}, "a.tif");
  const auto chosen = site.shift;
  ASSERT_TRUE(chosen.has_value());
  Take_Extent(site, {395000, 6672000, 396000, 6673000}, "b.tif");
  EXPECT_EQ(site.shift, chosen);
  EXPECT_THROW(Take_Extent(site, {485000, 6672000, 486000, 6673000}, "c.tif"), Refused);
  EXPECT_EQ(site.shift, chosen);
}

TEST(TakeExtent, RefusesExchangedAxesAndNamesTheFile) {
  Site site;
  site.crs = "EPSG:3067";
  try {
    Take_Extent(site, {6672000, 385000, 6673000, 386000}, "swapped.csv");
    FAIL() << "it was taken";
  } catch (const Refused& refusal) {
    EXPECT_NE(std::string(refusal.what()).find("swapped.csv"), std::string::npos);
    EXPECT_NE(std::string(refusal.what()).find("exchanged"), std::string::npos);
  }
}

TEST(TakeExtent, RefusesDegrees) {
  for (const auto& [X, Y] : {std::pair{24.9, 60.2}, std::pair{60.2, 24.9}}) {
    Site site;
    site.crs = "EPSG:3067";
    try {
      Take_Extent(site, {X, Y, X + 0.01, Y + 0.01}, "degrees.csv");
      FAIL() << "it was taken";
    } catch (const Refused& refusal) {
      EXPECT_NE(std::string(refusal.what()).find("degrees.csv"), std::string::npos);
      EXPECT_NE(std::string(refusal.what()).find("in degrees"), std::string::npos);
    }
  }
}

TEST(TakeExtent, TakesSmallCoordinatesThatAreNoDegreesOfTheArea) {
  Site site;
  site.crs = "EPSG:3067";
  EXPECT_NO_THROW(Take_Extent(site, {0, 0, 100, 100}, "local.csv"));
}

}  // namespace
}  // namespace sylvomex
