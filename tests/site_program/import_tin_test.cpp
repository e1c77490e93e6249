// SPDX-License-Identifier: MIT
// Triangulated models by the command line, looked up by the workstation.
#include <nlohmann/json.hpp>

#include "site_program/imported_site.h"
#include "support/las_files.h"
#include "support/test_rasters.h"

namespace sylvomex {
namespace {

struct TinSite : ImportedSite {
  std::string Path(const std::string& name) const { return (folder.Path() / name).string(); }

  std::vector<double> Heights(const std::vector<Point3D>& world) {
    const Point3D shift = Shift();
    std::string script =
        "file c:\\data\\models\\tin.nod\nfile c:\\data\\models\\tin.tri\nmenu Add_Tin\n";
    for (const Point3D& at : world) {
      char line[100];
      std::snprintf(line, sizeof line, "call Get_Tin_Elevation_Tiled %.17g %.17g 0\n",
                    at.X - shift.X, at.Y - shift.Y);
      script += line;
    }
    return Results(Played(script));
  }

  std::string Lidar(const std::string& name, double height_of_ground) {
    TestLas las;
    las.offset = {384000, 6675000, 0};
    for (int i = 0; i < 400; ++i) {
      const double X = 384000 + (i * 37 % 101) * 3.1, Y = 6675000 + (i * 53 % 97) * 3.3;
      las.points.push_back({X, Y, height_of_ground + 0.1 * (X - 384000), 1, 1, 1.0 * i, 0, 2});
      las.points.push_back({X, Y, 900, 1, 1, 1000.0 + i, 0, 5});
    }
    return folder.Write(name, las.Bytes()).native.string();
  }
};

// Height = 100 + col + row / 4 is a plane, so triangles between the cell centres lie in it.
TEST_F(TinSite, ARasterBecomesTheTrianglesOfItsCells) {
  TestRaster raster;
  raster.columns = 120;
  raster.rows = 80;
  const SitePlayed played = Import("tin", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  const auto told = nlohmann::json::parse(played.out);
  EXPECT_EQ(told["nodes"], 120 * 80);
  EXPECT_EQ(told["triangles"], 119 * 79 * 2);
  std::vector<Point3D> places;
  for (int i = 1; i < 30; ++i) places.push_back({384000 + 7.7 * i, 6676000 - 5.1 * i, 0});
  const std::vector<double> heights = Heights(places);
  ASSERT_EQ(heights.size(), places.size());
  for (std::size_t i = 0; i < places.size(); ++i) {
    const double col = (places[i].X - 384000) / 2 - 0.5;
    const double row = (6676000 - places[i].Y) / 2 - 0.5;
    EXPECT_NEAR(heights[i], 100 + col + 0.25 * row, 1e-3);
  }
}

TEST_F(TinSite, OnlyGroundEchoesAreNodes) {
  const SitePlayed played = Import("tin", {Lidar("a.las", 50)});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(nlohmann::json::parse(played.out)["nodes"], 400);
  EXPECT_NEAR(Heights({{384150, 6675150, 0}}).at(0), 65, 1e-3);
}

TEST_F(TinSite, TheSeaAtHeightZeroIsKept) {
  TestRaster raster;
  raster.height = [](int col, int) { return col < 6 ? 0 : col; };
  const SitePlayed played = Import("tin", {raster.Write(Path("a.tif"))});
  ASSERT_EQ(played.status, 0) << played.err;
  const std::vector<double> heights = Heights({{384004, 6675990, 0}, {384019, 6675990, 0}});
  EXPECT_NEAR(heights.at(0), 0, 1e-3);
  EXPECT_NEAR(heights.at(1), 9, 1e-3);
}

// A tile file of the first model would name triangles that the second does not have.
TEST_F(TinSite, TileFilesOfAnEarlierModelDoNotMislead) {
  TestRaster wide;
  wide.columns = 200;
  wide.rows = 200;
  ASSERT_EQ(Import("tin", {wide.Write(Path("a.tif"))}).status, 0);
  TestRaster small;
  small.place[0] = 384100;
  ASSERT_EQ(Import("tin", {small.Write(Path("b.tif"))}).status, 0);
  EXPECT_NEAR(Heights({{384111, 6675991, 0}}).at(0), 106, 1.5);
  for (const auto& entry : std::filesystem::directory_iterator(Native("c/data/Tris"))) {
    std::int32_t count = 0;
    std::memcpy(&count, folder.Read("site/c/data/Tris/" + entry.path().filename().string()).data(),
                sizeof count);
    EXPECT_LE(count, 11 * 8 * 2) << entry.path();
  }
}

TEST_F(TinSite, RefusalsLeaveTheSiteAsItWas) {
  const auto before = Content();
  TestLas canopy;
  canopy.points = {{384000, 6675000, 1, 1, 1, 1, 0, 5}};
  const std::string lidar = folder.Write("a.las", canopy.Bytes()).native.string();
  const SitePlayed played = Import("tin", {lidar});
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.err.find("a.las: there are no ground echoes"), std::string::npos);
  TestRaster line;
  line.rows = 1;
  EXPECT_EQ(Import("tin", {line.Write(Path("line.tif"))}).status, 1);
  EXPECT_EQ(Content(), before);
}

}  // namespace
}  // namespace sylvomex
