// SPDX-License-Identifier: MIT
// Whole lidar commands by script, over one vertical photograph: c = 0.1 m, 10 um pixels, 1000 m
// above Z = 0, so that column = 500 + 10000 (X - X0) / (1000 - Z).
#include <gtest/gtest.h>

#include <sstream>

#include "support/lidar_files.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr double kX = 2516450, kY = 6857050;

struct LidarSession : testing::Test {
  SmallSite site;
  const TemporaryFolder& folder = site.Folder();

  LidarSession() {
    SmallImage image;
    image.X0 = kX;
    image.Y0 = kY;
    site.Write_Image("a", image);
    folder.Write("c/data/JetColorMAP.csv", Test_Colour_Map());
    folder.Write("c/data/als2004_path.hdr", "\"c:\\old als\\\"\n");
    folder.Write("c/data/als2006_path.hdr", "c:\\als06\\\n");
    folder.Write("c/data/als2007_path.hdr", "c:\\als07\\\n");
    for (const char* name : {"c/old als", "c/als06", "c/als07", "c/temp", "d/data/laser"}) {
      folder.Make_Folder(name);
    }
    Write_Ground();
  }

  // Flat at 100 m over the tile.
  void Write_Ground() {
    std::string cells;
    for (int i = 0; i < 21 * 21; ++i) Append_Value(cells, 100.0F);
    folder.Write("c/data/dem.bin", cells);
    folder.Write("c/data/dem.hdr", "21\n21\n2516350\n6856950\n10\n0\nc:\\data\\dem.bin\n");
  }

  static std::string Begin() {
    return "file c:\\data\\a.hdr\nmenu Add_images_to_set\n"
           "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n"
           "input 2516450\ninput 6857050\ninput 110\nmenu Set_3D_solution\nmenu Clear_ima\n";
  }

  // The transcript from the first step after the preparation.
  std::string Transcript(const std::string& steps) {
    const PlayedSession played = Play_Script(folder, Begin() + "say begin\n" + steps);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    const std::size_t begin = played.transcript.find("say begin\n");
    return begin == std::string::npos ? "" : played.transcript.substr(begin + 10);
  }
};

TEST_F(LidarSession, The2007OverlayIsInTheMarks) {
  TestPulse high = Single_Echo({kX + 9, kY, 100 + 10, 73, 780});  // 73 x 1.0225 -> 75: row 32
  high.gain = 127;
  TestPulse two = high;
  two.echo_count = 2;
  folder.Write("c/als07/064_070.bin", Counted_Bytes(std::vector{high, two}));
  const std::string transcript = Transcript(
      "menu Plot_ALS_2007\nprint LidarPulses.Count\nprint LidarPoints.Count\n"
      "print PaneViews(0)\nmarks Picture1(0)\n");
  std::istringstream lines(transcript);
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line, "LidarPulses.Count = 2");
  std::getline(lines, line);
  EXPECT_EQ(line, "LidarPoints.Count = 0");
  std::getline(lines, line);
  std::istringstream view(line.substr(std::string("PaneViews(0) = ").size()));
  double view_col = 0, view_row = 0;
  view >> view_col >> view_row;
  std::getline(lines, line);
  std::istringstream point(line);
  std::string kind;
  double px = 0, py = 0;
  int r = 0, g = 0, b = 0, width = 0;
  point >> kind >> px >> py >> r >> g >> b >> width;
  EXPECT_EQ(kind, "point");
  EXPECT_NEAR(px, 500 + 90000.0 / 890 - view_col - 1, 1e-6);
  EXPECT_NEAR(py, 500 - view_row - 1, 1e-6);
  EXPECT_EQ(r, 32);
  EXPECT_EQ(g, 132);
  EXPECT_EQ(b, 168);
  EXPECT_EQ(width, 3);
  EXPECT_FALSE(std::getline(lines, line)) << line;
}

TEST_F(LidarSession, The2004OverlayLeavesItsScale) {
  folder.Write("c/old als/024_020.bin",
               Counted_Bytes(std::vector<Test2004Record>{{0, 0, 0, kX, kY, 99.5F}}));
  const std::string transcript =
      Transcript("print LidarPlotScale\nmenu plot_als_bin_file\nprint LidarPlotScale\n");
  EXPECT_EQ(transcript, "LidarPlotScale = 0\nLidarPlotScale = 40\n");
}

TEST_F(LidarSession, TheListingStopsAtThreeEchoes) {
  TestPulse three = Single_Echo({kX, kY, 120, 7, 0});
  three.echo_count = 3;
  three.slot[3] = {kX + 1, kY, 110, 8, 0};
  three.slot[2] = {kX + 2, kY, 105, 9, 0};
  folder.Write("c/als07/064_070.bin", Counted_Bytes(std::vector{three, three}));
  EXPECT_EQ(Transcript("menu Print_ALS_in_ASCII\nprint Label10\n"),
            "Label10 = c:\\als07\\064_070.bin\n");
  EXPECT_EQ(folder.Read("d/als_2516400_2517500_6856700_6858100_ALS_2007.txt"),
            "2516450.00 6857050.00 120.00 20.00 007 1 0 1 \n"
            "2516451.00 6857050.00 110.00 10.00 008 2 0 1 \n");
}

TEST_F(LidarSession, RastersAndMapAreMade) {
  folder.Write("c/als06/064_070.bin", Announced_Bytes(100'000, 0));
  EXPECT_EQ(Transcript("menu Make_Lidar_Intensity_Map\n"
                       "input 2514000\ninput 6855100\ninput 2\ninput 1\ninput 1\n"
                       "command Create_CHM_from_ALS\nprint Label2\n"),
            "input \"Give X for the upper left corner (of the DEM-pixel)\" title=\"\" default=\"\" "
            "-> \"2514000\"\n"
            "input \"Give Y for the upper left corner (of the DEM-pixel)\" title=\"\" default=\"\" "
            "-> \"6855100\"\n"
            "input \"Give width in X, m\" title=\"\" default=\"\" -> \"2\"\n"
            "input \"Give height in Y, m\" title=\"\" default=\"\" -> \"1\"\n"
            "input \"Give gridcell size, m \" title=\"\" default=\"\" -> \"1\"\n"
            "Label2 = 2 rows\n");
  EXPECT_EQ(folder.Read("d/data/laser/CHM.bin").size(), 8U);
  const std::string map = folder.Read("c/temp/LiDMap.raw");
  EXPECT_EQ(map.substr(3 * (70 * 200 + 64), 3), "\x20\x84\xA8");  // 32, 132, 168
}

TEST_F(LidarSession, FailuresAreOneLine) {
  folder.Write("c/als06/064_070.bin", Announced_Bytes(3, 10));
  EXPECT_EQ(Transcript("try menu Print_ALS_near_solution\nprint LidarPulses.Count\n"),
            "error Print_ALS_near_solution \"Bad content: c:\\als06\\064_070.bin, 3 records of 207 "
            "bytes need 625 bytes, the file has 14\"\nLidarPulses.Count = 0\n");
}

TEST_F(LidarSession, AMissingTileIsSilent) {
  EXPECT_EQ(Transcript("menu Print_ALS_near_solution\nmenu Plot_ALS_2007\nmenu Plot_Lidar_pdf\n"
                       "menu plot_als_bin_file\nmarks Picture1(0)\n"),
            "");
  EXPECT_EQ(folder.Read("c/als06/064_070.bin"), "");
  EXPECT_EQ(folder.Read("c/als07/064_070.bin"), "");
  EXPECT_EQ(folder.Read("c/old als/024_020.bin"), "");
}

TEST_F(LidarSession, TileNamesCanBeCalled) {
  EXPECT_EQ(Transcript("call Tile_Name c:\\als\\ 2007 2516431.2 6857012.9\n"
                       "call Tile_Name \"\" 2004 2516431.2 6857012.9\n"),
            "Tile_Name c:\\als\\ 2007 2516431.2 6857012.9 = \"c:\\als\\064_070.bin\"\n"
            "Tile_Name \"\" 2004 2516431.2 6857012.9 = \"024_020.bin\"\n");
  const PlayedSession played = Play_Script(folder, "call Tile_Name x 2005 1 2\n");
  EXPECT_EQ(played.status, 1);
}

}  // namespace
}  // namespace sylvomex
