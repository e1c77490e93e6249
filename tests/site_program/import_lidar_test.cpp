// SPDX-License-Identifier: MIT
// Lidar imports by the command line, read back by the workstation's own readers.
#include <tbb/global_control.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <random>

#include "lidar/pulse_table.h"
#include "lidar/tile_2004.h"
#include "site_program/imported_site.h"
#include "support/las_files.h"

namespace sylvomex {
namespace {

struct LidarSite : ImportedSite {
  std::string Write(const std::string& name, const TestLas& las) {
    return folder.Write(name, las.Bytes()).native.string();
  }

  SitePlayed Import(const std::string& campaign, std::vector<std::string> words) {
    words.insert(words.end(), {"--campaign", campaign});
    return ImportedSite::Import("lidar", words);
  }

  /// All pulses of a campaign of one tile, the only one that is expected.
  PulseTable Only_Tile(const std::string& campaign) {
    PulseTable pulses;
    int tiles = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Native("c/data/als" + campaign))) {
      Read_Pulse_Tile({entry.path().filename().string(), entry.path()}, pulses, 1);
      ++tiles;
    }
    EXPECT_EQ(tiles, 1);
    return pulses;
  }
};

constexpr double kX = 384050, kY = 6675050;

TestLas Three_Echoes() {
  TestLas las;
  las.points = {{kX, kY, 180, 1, 3, 77.5, 100, 5},
                {kX + 0.5, kY + 0.25, 170, 2, 3, 77.5, 40000, 4},
                {kX + 1, kY + 0.5, 160.125, 3, 3, 77.5, 30, 2}};
  return las;
}

TEST_F(LidarSite, ProgressIsToldInRisingPercent) {
  const SitePlayed played =
      Import("2007", {Write("a.las", Three_Echoes()), "--flying-height", "1000", "--progress"});
  ASSERT_EQ(played.status, 0) << played.err;
  std::istringstream lines(played.err);
  std::vector<int> told;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("progress ")) told.push_back(std::stoi(line.substr(9)));
  }
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told.back(), 100);
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end(), std::less_equal<>())) << played.err;
}

TEST_F(LidarSite, SlotsOf2007FillFromTheFourthDown) {
  const SitePlayed played =
      Import("2007", {Write("a.las", Three_Echoes()), "--flying-height", "1000"});
  ASSERT_EQ(played.status, 0) << played.err;
  const PulseTable pulses = Only_Tile("2007");
  ASSERT_EQ(pulses.Count(), 1);
  const LidarPulse pulse = pulses(1);
  const Point3D shift = Shift();
  EXPECT_EQ(pulse.EchoCount, 3);
  EXPECT_NEAR(pulse.Slot(4).X, kX - shift.X, 1e-6);
  EXPECT_NEAR(pulse.Slot(4).Y, kY - shift.Y, 1e-6);
  EXPECT_NEAR(pulse.Slot(3).X, kX + 0.5 - shift.X, 1e-6);
  EXPECT_NEAR(pulse.Slot(2).Z, 160.125, 1e-9);
  EXPECT_EQ(pulse.Slot(1).X, 0);
  EXPECT_EQ(pulse.Slot(4).Intensity, 100);
  EXPECT_EQ(pulse.Slot(3).Intensity, 32767);  // the greatest that a record holds
  EXPECT_NEAR(pulse.SensorZ, 1180, 1e-9);
  EXPECT_NEAR(pulse.Slot(4).Range, 1000, 1e-9);
  EXPECT_NEAR(pulse.Slot(2).Range, std::hypot(1, 0.5, 1019.875), 1e-6);
  EXPECT_EQ(pulse.PulseValue, 77.5);
}

TEST_F(LidarSite, SlotsOf2006FillFromTheFirstUp) {
  const SitePlayed played =
      Import("2006", {Write("a.las", Three_Echoes()), "--flying-height", "700"});
  ASSERT_EQ(played.status, 0) << played.err;
  const PulseTable pulses = Only_Tile("2006");
  const LidarPulse pulse = pulses(1);
  EXPECT_NEAR(pulse.Slot(1).Z, 180, 1e-9);
  EXPECT_NEAR(pulse.Slot(3).Z, 160.125, 1e-9);
  EXPECT_EQ(pulse.Slot(4).X, 0);
  EXPECT_NE(played.err.find("sensor at 1000 m or below"), std::string::npos);
  EXPECT_EQ(nlohmann::json::parse(played.out)["low_sensors"], 1);
}

TEST_F(LidarSite, RecordsOf2004HoldFirstAndLastEchoLower) {
  ASSERT_EQ(Import("2004", {Write("a.las", Three_Echoes())}).status, 0);
  for (const auto& entry :
       std::filesystem::directory_iterator(folder.Path() / "site/c/data/als2004")) {
    const auto records = Read_Tile_2004({"tile", entry.path()});
    ASSERT_EQ(records.size(), 1U);
    EXPECT_NEAR(records[0].FirstX, kX - Shift().X, 1e-6);
    EXPECT_NEAR(records[0].LastY, kY + 0.5 - Shift().Y, 1e-6);
    EXPECT_NEAR(records[0].FirstZ + 0.18F, 180, 2e-5);
    EXPECT_NEAR(records[0].LastZ + 0.18F, 160.125, 2e-5);
  }
}

TEST_F(LidarSite, EchoesOfAPulseAreJoinedOverFiles) {
  TestLas first = Three_Echoes(), second = Three_Echoes();
  first.points = {first.points[1]};
  second.points = {second.points[2], second.points[0]};
  ASSERT_EQ(Import("2007", {Write("a.las", first), Write("b.las", second)}).status, 0);
  const LidarPulse pulse = Only_Tile("2007")(1);
  EXPECT_EQ(pulse.EchoCount, 3);
  EXPECT_NEAR(pulse.Slot(4).Z, 180, 1e-9);
}

TEST_F(LidarSite, TheFifthEchoIsLeftOutAndTold) {
  TestLas las;
  for (int i = 1; i <= 6; ++i) las.points.push_back({kX, kY, 200.0 - i, i, 6, 5});
  const SitePlayed played = Import("2007", {Write("a.las", las)});
  EXPECT_EQ(nlohmann::json::parse(played.out)["echoes_left_out"], 2);
  EXPECT_NE(played.err.find("2 echoes behind the fourth"), std::string::npos);
  EXPECT_NEAR(Only_Tile("2007")(1).Slot(1).Z, 196, 1e-9);
}

TEST_F(LidarSite, FormatsWithoutTimesAreJoinedByTheOrderOfTheFile) {
  TestLas las;
  las.format = 0;
  las.points = {{kX, kY, 3, 1, 2}, {kX, kY, 2, 2, 2}, {kX, kY, 1, 1, 1}, {kX, kY, 0, 1, 2}};
  const SitePlayed played = Import("2007", {Write("a.las", las)});
  EXPECT_EQ(nlohmann::json::parse(played.out)["pulses"], 3);
  EXPECT_NE(played.err.find("do not tell pulses apart"), std::string::npos);
}

TEST_F(LidarSite, TheSameFileIsSkippedAndANewOneAdds) {
  const std::string file = Write("a.las", Three_Echoes());
  ASSERT_EQ(Import("2007", {file}).status, 0);
  const auto before = Content();
  const SitePlayed again = Import("2007", {file});
  EXPECT_EQ(again.status, 0);
  EXPECT_NE(again.err.find("imported before"), std::string::npos);
  EXPECT_EQ(Content(), before);
  TestLas other = Three_Echoes();
  for (TestLasPoint& point : other.points) point.time += 1;
  ASSERT_EQ(Import("2007", {Write("b.las", other), file}).status, 0);
  EXPECT_EQ(Only_Tile("2007").Count(), 2);
}

TEST_F(LidarSite, ARefusalLeavesTheSiteAsItWas) {
  const std::string good = Write("a.las", Three_Echoes());
  ASSERT_EQ(Import("2007", {good}).status, 0);
  const auto before = Content();
  TestLas wrong = Three_Echoes();
  wrong.count = 4;
  TestLas zero = Three_Echoes();
  zero.scale[0] = 0;
  TestLas empty = Three_Echoes();
  empty.points.clear();
  TestLas far = Three_Echoes();
  far.offset[0] += 500000;
  for (TestLasPoint& point : far.points) point.X += 500000;
  TestLas timeless = Three_Echoes();
  timeless.points[1].time = NAN;
  for (const TestLas& las : {wrong, zero, empty, far, timeless}) {
    const SitePlayed played = Import("2007", {good, Write("bad.las", las)});
    EXPECT_EQ(played.status, 1);
    EXPECT_NE(played.err.find("bad.las"), std::string::npos) << played.err;
    EXPECT_EQ(Content(), before);
  }
  EXPECT_EQ(Import("2007", {folder.Write("c.las", "hello").native.string()}).status, 1);
  EXPECT_EQ(Import("2007", {(folder.Path() / "none.las").string()}).status, 1);
  EXPECT_EQ(Content(), before);
}

TEST_F(LidarSite, AnotherSystemIsReprojected) {
  // 27 degrees east lies on the central meridian of zone 35, X = 500000.
  TestLas las;
  las.minor = 4;
  las.scale = {1e-7, 1e-7, 0.001};
  las.offset = {27, 62, 0};
  las.wkt =
      "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563]],"
      "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433],AUTHORITY[\"EPSG\",\"4326\"]]";
  las.points = {{27, 62, 100, 1, 1, 5}};
  const SitePlayed played = Import("2007", {Write("a.las", las)});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_NEAR(Only_Tile("2007")(1).Slot(4).X, 500000 - Shift().X, 2e-3);
  EXPECT_NE(played.err.find("reprojected"), std::string::npos);
}

TEST_F(LidarSite, ATrajectoryGivesTheSensors) {
  const std::string flight =
      folder.Write("t.csv", "t,X,Y,Z\n77,384000,6675000,1500\n78,384100,6675000,1600\n")
          .native.string();
  ASSERT_EQ(Import("2007", {Write("a.las", Three_Echoes()), "--trajectory", flight}).status, 0);
  const LidarPulse pulse = Only_Tile("2007")(1);
  EXPECT_NEAR(pulse.SensorX, 384050 - Shift().X, 1e-6);
  EXPECT_NEAR(pulse.SensorZ, 1550, 1e-9);
  EXPECT_NEAR(pulse.Slot(4).Range, std::hypot(50, 1370), 1e-6);
}

TEST_F(LidarSite, ATrajectoryOfAnotherFlightIsRefused) {
  const std::string flight =
      folder.Write("t.csv", "t,X,Y,Z\n7,384000,6675000,1500\n8,384100,6675000,1600\n")
          .native.string();
  const SitePlayed played =
      Import("2007", {Write("a.las", Three_Echoes()), "--trajectory", flight});
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.err.find("t.csv: no echo was measured in its time"), std::string::npos);
}

TEST_F(LidarSite, TilesAreTheSameForAnyNumberOfThreads) {
  TestLas las;
  for (int i = 0; i < 30000; ++i) {
    const int pulse = i * 7919 % 15000;
    las.points.push_back({kX + pulse % 173, kY + pulse % 211, 100.0 + pulse % 31, 1 + i / 15000, 2,
                          100 + pulse * 0.001, static_cast<std::uint16_t>(i)});
  }
  const std::string file = Write("a.las", las);
  ASSERT_EQ(Import("2007", {file}).status, 0);
  auto many = Content();
  std::filesystem::remove_all(site);
  ASSERT_EQ(Play_Site({"init", site, "--crs", "EPSG:3067"}).status, 0);
  const tbb::global_control one(tbb::global_control::max_allowed_parallelism, 1);
  ASSERT_EQ(Import("2007", {file}).status, 0);
  auto single = Content();
  many.erase("site/site.toml");  // holds the time of the import
  single.erase("site/site.toml");
  EXPECT_EQ(single, many);
  std::size_t records = 0;
  for (const auto& [name, content] : single) {
    if (name.ends_with(".bin")) records += (content.size() - 4) / 207;
  }
  EXPECT_EQ(records, 15000U);
}

TEST_F(LidarSite, TheOrderOfTheEchoesInTheirFileDoesNotMatter) {
  TestLas las;
  las.format = 6;
  las.minor = 4;
  for (int i = 0; i < 200000; ++i) {
    const int pulse = i / 2;
    las.points.push_back({kX + pulse % 1731 * 0.5, kY + pulse % 2111 * 0.25, 100.0 + pulse % 31,
                          1 + i % 2, 2, 100 + pulse * 0.001, static_cast<std::uint16_t>(i), 0,
                          pulse % 41 - 20.0, static_cast<std::uint16_t>(pulse / 30'000)});
  }
  // Two files: the echoes are divided at a time in the middle of a block of the second one.
  const auto import = [&](const std::string& name) {
    TestLas first = las, second = las;
    first.points.resize(30000);
    second.points.erase(second.points.begin(), second.points.begin() + 30000);
    std::filesystem::remove_all(site);
    EXPECT_EQ(Play_Site({"init", site, "--crs", "EPSG:3067"}).status, 0);
    EXPECT_EQ(Import("2007", {Write(name + "1.las", first), Write(name + "2.las", second)}).status,
              0);
    auto content = Content();
    content.erase("site/site.toml");  // holds the time of the import
    return content;
  };
  const auto ordered = import("ordered");
  EXPECT_GT(ordered.size(), 50U);
  // Turned over in stretches: the blocks of 65536 points follow each other in the order of time.
  constexpr std::ptrdiff_t kStretch = 16384;
  for (auto at = las.points.begin() + 30000; las.points.end() - at >= kStretch; at += kStretch) {
    std::reverse(at, at + kStretch);
  }
  EXPECT_TRUE(import("stretches") == ordered);
  std::shuffle(las.points.begin(), las.points.end(), std::mt19937(1));
  EXPECT_TRUE(import("shuffled") == ordered);
}

TEST_F(LidarSite, ANewFileOfTheSameSizeIsNotSkipped) {
  TestLas las = Three_Echoes();
  ASSERT_EQ(Import("2007", {Write("a.las", las)}).status, 0);
  las.points[2].intensity = 31;
  ASSERT_EQ(Import("2007", {Write("b.las", las), Write("c.las", las)}).status, 0);
  EXPECT_EQ(Only_Tile("2007").Count(), 2);
}

TEST_F(LidarSite, APathHeaderThatStandsIsFollowed) {
  folder.Write("site/c/data/als2006_path.hdr", "\"c:\\old als\\\"\n");
  ASSERT_EQ(Import("2006", {Write("a.las", Three_Echoes())}).status, 0);
  EXPECT_TRUE(folder.Has("site/c/old als"));
  EXPECT_FALSE(std::filesystem::is_empty(folder.Path() / "site/c/old als"));
}

}  // namespace
}  // namespace sylvomex
