// SPDX-License-Identifier: MIT
// Height rasters by the command line, looked up by the workstation.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>

#include "site_program/imported_site.h"
#include "support/test_rasters.h"

namespace sylvomex {
namespace {

struct RasterSite : ImportedSite {
  std::string Path(const std::string& name) const { return (folder.Path() / name).string(); }

  /// Heights of the terrain model at world positions.
  std::vector<double> Heights(const std::vector<Point3D>& world) {
    const Point3D shift = Shift();
    std::string script = "file c:\\data\\models\\dem.hdr\ninput 0\nmenu Add_height_Model\n";
    for (const Point3D& at : world) {
      char line[100];
      std::snprintf(line, sizeof line, "call Get_Raster_Elevation %.17g %.17g\n", at.X - shift.X,
                    at.Y - shift.Y);
      script += line;
    }
    return Results(Played(script));
  }
};

TEST_F(RasterSite, EveryCellIsAsInTheRaster) {
  TestRaster raster;
  raster.no_data = "-32768";
  raster.height = [](int col, int row) {
    return col == 3 && row == 4 ? -32768 : 100 + col * 1.5 + row * 20;
  };
  const SitePlayed played = Import("dem", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(nlohmann::json::parse(played.out)["no_data"], 1);
  std::vector<Point3D> centres;
  for (int row = 0; row < 9; ++row) {
    for (int col = 0; col < 12; ++col) {
      centres.push_back({384000 + 2 * (col + 0.5), 6676000 - 2 * (row + 0.5), 0});
    }
  }
  const std::vector<double> heights = Heights(centres);
  ASSERT_EQ(heights.size(), centres.size());
  for (int row = 0; row < 9; ++row) {
    for (int col = 0; col < 12; ++col) {
      const double expected = col == 3 && row == 4 ? -9999 : raster.height(col, row);
      EXPECT_EQ(heights[static_cast<std::size_t>(row * 12 + col)], expected) << col << " " << row;
    }
  }
}

const char* const kOwnGrid =
    "LOCAL_CS[\"grid of the site\",UNIT[\"metre\",1],AXIS[\"Easting\",EAST],AXIS[\"Northing\","
    "NORTH]]";

TEST_F(RasterSite, AGridOfOnesOwnIsThatOfASiteWithOne) {
  std::filesystem::remove_all(site);
  ASSERT_EQ(Play_Site({"init", site, "--crs", kOwnGrid}).status, 0);
  TestRaster raster;
  raster.crs = kOwnGrid;
  const SitePlayed played = Import("dem", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  const Point3D shift = Shift();
  const std::string result = Played(
      "file c:\\data\\models\\dem.hdr\ninput 0\nmenu Add_height_Model\ncall Get_Raster_Elevation " +
      std::to_string(384001 - shift.X) + " " + std::to_string(6675999 - shift.Y) + "\n");
  EXPECT_EQ(Results(result), std::vector<double>{raster.height(0, 0)});
}

TEST_F(RasterSite, AGridOfOnesOwnHasNoPlaceOnTheMap) {
  TestRaster raster;
  raster.crs = kOwnGrid;
  const SitePlayed played = Import("dem", {raster.Write(Path("a.tif"))});
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.err.find("a.tif: the raster has no coordinate system"), std::string::npos)
      << played.err;
}

TEST_F(RasterSite, ACompoundSystemOfTheSameMapIsCopied) {
  TestRaster raster;
  raster.crs = "EPSG:3067+5717";
  const SitePlayed played = Import("dem", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(nlohmann::json::parse(played.out)["notes"].size(), 0U);
  EXPECT_EQ(Heights({{384001, 6675999, 0}}), std::vector<double>{100});
}

// The same projection without names and codes, as older files define it.
TEST_F(RasterSite, ASystemWithTheSameCoordinatesIsCopied) {
  TestRaster raster;
  raster.crs =
      "PROJCS[\"unnamed\",GEOGCS[\"unknown\",DATUM[\"unknown\",SPHEROID[\"GRS 80\",6378137,"
      "298.257222101]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],PROJECTION["
      "\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],PARAMETER["
      "\"central_meridian\",27],PARAMETER[\"scale_factor\",0.9996],PARAMETER[\"false_easting\","
      "500000],PARAMETER[\"false_northing\",0],UNIT[\"metre\",1]]";
  const SitePlayed played = Import("dem", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(nlohmann::json::parse(played.out)["notes"].size(), 0U) << played.err;
}

TEST_F(RasterSite, FeetBecomeMetres) {
  TestRaster raster;
  raster.unit = "ft";
  raster.height = [](int, int) { return 1000; };
  ASSERT_EQ(Import("dem", {raster.Write(Path("a.tif"))}).status, 0);
  EXPECT_NEAR(Heights({{384001, 6675999, 0}}).at(0), 304.8, 1e-4);
}

TEST_F(RasterSite, AMapInFeetWithoutAUnitOfHeightsIsTold) {
  std::filesystem::remove_all(site);
  ASSERT_EQ(Play_Site({"init", site, "--crs", "EPSG:32119"}).status, 0);
  TestRaster raster;
  raster.crs = "EPSG:2264";  // the same map in feet
  raster.place = {2000000, 10, 0, 600000, 0, -10};
  const char* const kTold = "nothing tells the unit of its heights; they are taken in metres";
  const SitePlayed open = Import("dem", {raster.Write(Path("a.tif"))});
  EXPECT_EQ(open.status, 0);
  EXPECT_NE(open.err.find(kTold), std::string::npos) << open.err;
  raster.unit = "ft";
  const SitePlayed told = Import("dem", {raster.Write(Path("b.tif"))});
  EXPECT_EQ(told.status, 0);
  EXPECT_EQ(told.err.find(kTold), std::string::npos) << told.err;
}

TEST_F(RasterSite, SeveralRastersAreOneModelAndTheLastCounts) {
  TestRaster west, east;
  east.place[0] = 384020;  // overlaps two columns
  east.height = [](int, int) { return 500; };
  const SitePlayed played = Import("dem", {west.Write(Path("a.tif")), east.Write(Path("b.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(nlohmann::json::parse(played.out)["columns"], 22);
  EXPECT_EQ(Heights({{384019, 6675999, 0}, {384021, 6675999, 0}, {384043, 6675999, 0}}),
            (std::vector<double>{109, 500, 500}));
}

// A plane stays a plane under bilinear resampling, so its formula in the raster's own system tells
// every height.
TEST_F(RasterSite, AnotherSystemIsResampledBilinearly) {
  TestRaster raster;
  raster.columns = raster.rows = 60;
  raster.crs = "EPSG:32636";
  raster.place = {300000, 5, 0, 6800000, 0, -5};
  raster.height = [](int col, int row) { return 200 + 0.5 * col - 0.25 * row; };
  const SitePlayed played = Import("dem", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_LE(nlohmann::json::parse(played.out)["cell_size"], 5.0);
  const DriveMap drives(site);
  std::istringstream header(folder.Read("site/c/data/models/dem.hdr"));
  double columns, rows, X0, Y0, cell;
  header >> columns >> rows >> X0 >> Y0 >> cell;
  OGRSpatialReference from, to;
  from.importFromEPSG(3067);
  to.importFromEPSG(32636);
  const std::unique_ptr<OGRCoordinateTransformation> transform(
      OGRCreateCoordinateTransformation(&from, &to));
  std::vector<Point3D> centres;
  for (int i = 10; i < 50; i += 3) {
    centres.push_back({X0 + i * cell + Shift().X, Y0 + (i - 0.5) * cell + Shift().Y, 0});
  }
  const std::vector<double> heights = Heights(centres);
  for (std::size_t i = 0; i < centres.size(); ++i) {
    double X = centres[i].X, Y = centres[i].Y;
    transform->Transform(1, &X, &Y);
    const double expected = 200 + 0.5 * ((X - 300000) / 5 - 0.5) - 0.25 * ((6800000 - Y) / 5 - 0.5);
    EXPECT_NEAR(heights[i], expected, 1e-3);
  }
}

TEST_F(RasterSite, CellsThatAreNotSquareTakeTheShorterSide) {
  TestRaster raster;
  raster.place = {384000, 2, 0, 6676000, 0, -3};
  const SitePlayed played = Import("dem", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(nlohmann::json::parse(played.out)["cell_size"], 2);
  EXPECT_NE(played.err.find("resampled bilinearly"), std::string::npos);
}

TEST_F(RasterSite, ACanopyModelIsOneOfItsOwn) {
  ASSERT_EQ(Import("chm", {TestRaster().Write(Path("a.tif"))}).status, 0);
  const Point3D shift = Shift();
  char line[200];
  std::snprintf(line, sizeof line,
                "file c:\\data\\models\\chm.hdr\nmenu Add_Raster_CHM\n"
                "call Get_Raster_Chm_Elevation %.17g %.17g\n",
                384005 - shift.X, 6675997 - shift.Y);
  EXPECT_EQ(Results(Played(line)), std::vector<double>{102.25});
}

TEST_F(RasterSite, ImportingAgainReplaces) {
  TestRaster raster;
  ASSERT_EQ(Import("dem", {raster.Write(Path("a.tif"))}).status, 0);
  raster.height = [](int, int) { return 7; };
  ASSERT_EQ(Import("dem", {raster.Write(Path("b.tif"))}).status, 0);
  EXPECT_EQ(Heights({{384001, 6675999, 0}}), std::vector<double>{7});
}

TEST_F(RasterSite, WhatIsNoHeightRasterIsRefused) {
  const std::string good = TestRaster().Write(Path("good.tif"));
  ASSERT_EQ(Import("dem", {good}).status, 0);
  const auto before = Content();
  TestRaster nowhere;
  nowhere.crs = "";
  TestRaster large;
  large.columns = 40000;
  large.rows = 1;
  TestRaster swapped;  // northing and easting exchanged
  swapped.place = {6676000, 2, 0, 384000, 0, -2};
  TestRaster elsewhere;  // the numbers of the site's place in a zone of southern Africa
  elsewhere.crs = "EPSG:32735";
  std::vector<std::string> files = {nowhere.Write(Path("nowhere.tif")),
                                    elsewhere.Write(Path("elsewhere.tif")),
                                    large.Write(Path("large.tif")),
                                    swapped.Write(Path("swapped.tif")),
                                    Path("missing.tif"),
                                    folder.Write("text.tif", "hello").native.string()};
  TestRaster whole;
  whole.rows = 2000;
  const std::string intact = whole.Write(Path("whole.tif"));
  const std::string bytes = folder.Read("whole.tif");
  files.push_back(folder.Write("cut.tif", bytes.substr(0, bytes.size() / 2)).native.string());
  for (const std::string& file : files) {
    const SitePlayed played = Import("dem", {file});
    EXPECT_EQ(played.status, 1) << file;
    EXPECT_NE(played.err.find(file), std::string::npos) << played.err;
    EXPECT_EQ(Content(), before) << file;
  }
}

TEST_F(RasterSite, ARasterOfAWrongSystemIsRefusedByTheFirstImport) {
  TestRaster elsewhere;
  elsewhere.crs = "EPSG:32735";
  const SitePlayed played = Import("dem", {elsewhere.Write(Path("elsewhere.tif"))});
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.err.find("far outside the area of the site's"), std::string::npos) << played.err;
  TestRaster neighbour;  // the next zone to the east of the site's own
  neighbour.crs = "EPSG:32636";
  EXPECT_EQ(Import("dem", {neighbour.Write(Path("neighbour.tif"))}).status, 0);
}

/// Heights that bilinear interpolation gives back exactly.
TEST_F(RasterSite, ATurnedRasterIsNotSmoothed) {
  // Cells of 2 m, turned by 30 degrees. A saddle over the cells is bilinear within each of them.
  const double c = std::cos(std::acos(-1) / 6), s = 0.5;
  TestRaster raster;
  raster.columns = 150;
  raster.rows = 120;
  raster.place = {385000, 2 * c, 2 * s, 6672500, 2 * s, -2 * c};
  const auto saddle = [](double col, double row) { return 200 + (col - 75) * (row - 60) * 0.05; };
  raster.height = saddle;
  const SitePlayed played = Import("dem", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  const auto told = nlohmann::json::parse(played.out);
  EXPECT_EQ(told["cell_size"], 2);
  const Point3D shift = Shift();
  std::istringstream header(folder.Read("site/c/data/models/dem.hdr"));
  double columns = 0, rows = 0, X0 = 0, Y0 = 0, cell = 0;
  header >> columns >> rows >> X0 >> Y0 >> cell;
  const std::string bytes = folder.Read("site/c/data/models/dem.bin");
  ASSERT_EQ(bytes.size(), static_cast<std::size_t>(4 * columns * rows));
  int compared = 0;
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < columns; ++col) {
      const double X = X0 + col * cell + shift.X - 385000;
      const double Y = Y0 + (row - 0.5) * cell + shift.Y - 6672500;
      const double at_col = (c * X + s * Y) / 2 - 0.5, at_row = (s * X - c * Y) / 2 - 0.5;
      if (at_col < 2 || at_row < 2 || at_col > 147 || at_row > 117) continue;
      float height = 0;
      std::memcpy(&height, bytes.data() + 4 * (row * static_cast<int>(columns) + col), 4);
      EXPECT_NEAR(height, saddle(at_col, at_row), 2e-3) << col << " " << row;
      ++compared;
    }
  }
  EXPECT_GT(compared, 15000);
}

TEST_F(RasterSite, ProgressRisesToTheWhole) {
  const std::string raster = TestRaster().Write(Path("a.tif"));
  for (const char* kind : {"dem", "chm", "tin"}) {
    const SitePlayed played = Play_Site({"import", kind, site, raster, "--progress"});
    ASSERT_EQ(played.status, 0) << played.err;
    EXPECT_GE(std::count(played.err.begin(), played.err.end(), '\n'), 4) << played.err;
    EXPECT_TRUE(played.err.ends_with("progress 100\n")) << played.err;
  }
}

}  // namespace
}  // namespace sylvomex
