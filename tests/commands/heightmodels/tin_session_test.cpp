// SPDX-License-Identifier: MIT
// Triangulated models in scripted sessions, from their files to lookups, marks and rasters.
#include <gtest/gtest.h>

#include <algorithm>

#include "commands/heightmodels/tin_site.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

struct TinSite : testing::Test {
  SmallSite site;

  TinSite() {
    site.Folder().Make_Folder("c/temp");
    Write_Tin(site.Folder(), "a", {});
  }
  PlayedSession Play(const std::string& script) { return Play_Script(site.Folder(), script); }
};

constexpr const char* kLoad = "file c:\\data\\a.nod\nfile c:\\data\\a.tri\nmenu Add_Tin\n";

TEST_F(TinSite, ALoadedModelIsVisibleInTheBlock) {
  const PlayedSession played =
      Play(std::string("print TinDemLoaded\n") + kLoad +
           "expect Label10 \" TIN - DTM read succesfully\"\nprint TinDemLoaded\n"
           "print TinDem.NodeCount\nprint TinDem.TriangleCount\nprint TinDem.TileMinX\n"
           "print TinDem.TileMinY\nprint TinDem.TileMaxX\nprint TinDem.TileMaxY\n"
           "print TinChm.TriangleCount\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript,
            "TinDemLoaded = 0\n"
            "file title=\"File with node x,y,z\" filter=\"NOD files (*.nod)|*.nod\" folder=\"\" -> "
            "\"c:\\data\\a.nod\"\n"
            "file title=\"File with Triangle ids\" filter=\"NOD files (*.tri)|*.tri\" folder=\"\" "
            "-> \"c:\\data\\a.tri\"\n"
            "TinDemLoaded = -1\nTinDem.NodeCount = 4\nTinDem.TriangleCount = 2\n"
            "TinDem.TileMinX = 1000\nTinDem.TileMinY = 0\nTinDem.TileMaxX = 1100\n"
            "TinDem.TileMaxY = 100\nTinChm.TriangleCount = 0\n");
}

TEST_F(TinSite, CallsGiveTheHeightAndTheUpdatedHint) {
  // Powers of two, so that the plane is exact: Z = 256 + 32 (X - 1000). Both triangles start at X
  // 1000; the heapsort leaves the two equal keys as 2, 1.
  Write_Tin(site.Folder(), "a", {.east = 1008, .north = 8, .ground = 256, .slope = 32});
  const PlayedSession played =
      Play(std::string(kLoad) +
           "say lookups\ncall Get_Tin_Elevation 1006 2 0\ncall Get_Tin_Elevation 1006 2 1\n"
           "call Get_Tin_Elevation 900 2 0\ncall Get_Tin_Elevation_Tiled 1006 2 0\n"
           "call Get_Tin_Elevation_Tiled 1002 6 1\ncall Get_Tin_Elevation_Tiled 900 2 0\n"
           "call Get_Tin_Chm_Elevation 1006 2 0\n"
           "try call Get_Tin_Elevation 1006 2 3\ntry call Get_Tin_Elevation_Tiled 1006 2 -1\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript.substr(played.transcript.find("say lookups")),
            "say lookups\n"
            "Get_Tin_Elevation 1006 2 0 = 448 2\n"
            "Get_Tin_Elevation 1006 2 1 = 448 2\n"
            "Get_Tin_Elevation 900 2 0 = -99 0\n"
            "Get_Tin_Elevation_Tiled 1006 2 0 = 448 1\n"
            "Get_Tin_Elevation_Tiled 1002 6 1 = 320 2\n"
            "Get_Tin_Elevation_Tiled 900 2 0 = -99 0\n"
            "Get_Tin_Chm_Elevation 1006 2 0 = 0 -99\n"
            "error Get_Tin_Elevation \"Subscript out of range: 3 is not in 1 to 2\"\n"
            "error Get_Tin_Elevation_Tiled \"Subscript out of range: -1 is not in 1 to 2\"\n");
}

TEST_F(TinSite, AnInvalidFileIsOneMessageAndTheOldModelStaysInUse) {
  site.Folder().Write("c/data/b.nod", "1000,0,1\n1010,0,1\n1000,10,1\n");
  site.Folder().Write("c/data/b.tri", "0,1,2\n0,1,3\n");
  const PlayedSession played =
      Play(std::string(kLoad) +
           "file c:\\data\\b.nod\nfile c:\\data\\b.tri\nsay bad\ntry menu Add_Tin\n"
           "expect TinDemLoaded -1\nexpect TinDem.NodeCount 4\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("error Add_Tin \"Subscript out of range: c:\\data\\b.tri, line "
                                   "2, item 6: node 3 is not in 0 to 2\"\n"),
            std::string::npos)
      << played.transcript;
}

TEST_F(TinSite, TheHeightIsDrawnInThePanes) {
  Write_Tin(site.Folder(), "a", {.west = 30, .east = 60, .north = 60, .slope = 0});
  const std::string image = site.Write_Image("im", {.X0 = 40, .Y0 = 40});
  const PlayedSession played =
      Play("file " + image + "\nmenu Add_images_to_set\n" + kLoad +
           "input 40\ninput 40\ninput 300.2\nmenu Set_3D_solution\nmenu Clear_ima\n"
           "menu Get_TIN_DTM_Opt\nexpect Label10 \"Ground: 300.00 m Difference: .20 m\"\n"
           "say marks\nmarks Picture1(0)\n");
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  // Two blocks of 25 points, a line, two segments with their heights.
  const std::string marks = played.transcript.substr(played.transcript.find("say marks"));
  EXPECT_EQ(std::count(marks.begin(), marks.end(), '\n'), 1 + 25 + 25 + 1 + 2 * 2);
}

TEST_F(TinSite, RasterizingRunsByScript) {
  const PlayedSession played =
      Play(std::string(kLoad) + "menu TIN2RASTER_Fast\nexpect Label10 1\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("message \"100\" title=\"\" buttons=ok -> ok\n"),
            std::string::npos);
  EXPECT_EQ(site.Folder().Read("c/temp/varrio.raw").size(), 101U * 101 * 4);
}

TEST_F(TinSite, GridsAreMadeByScriptAndReadBackAsModels) {
  Write_Tin(site.Folder(), "a",
            {.west = 367990,
             .south = 6671490,
             .east = 368500,
             .north = 6671900,
             .ground = 25,
             .slope = 0});
  Write_Level_Raster(site.Folder(), "dem", 367990, 6671490, 60, 20);
  const PlayedSession played = Play(
      "file c:\\data\\a.nod\nfile c:\\data\\a.tri\nmenu Add_Tin_CHM\n"
      "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n"
      "button yes\ncommand Create_raster_CHM_from_TIN_CHM\n"
      "file c:\\temp\\tin_chm.hdr\nmenu Add_Raster_CHM\n"
      "expect RasterChm.Reserved -99\ncall Get_Raster_Chm_Elevation 368010.5 6671600.5\n");
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  EXPECT_NE(played.transcript.find("Get_Raster_Chm_Elevation 368010.5 6671600.5 = 25.299999237"),
            std::string::npos)
      << played.transcript;
}

TEST_F(TinSite, ALoadInsideARunningCommandLeavesTheProgramRunning) {
  Write_Tin(site.Folder(), "far", {.west = 5000, .south = 5000, .east = 5010, .north = 5010});
  const PlayedSession played = Play(std::string(kLoad) +
                                    "file c:\\data\\far.nod\nfile c:\\data\\far.tri\n"
                                    "during 1 menu Add_Tin\ntry menu TIN2RASTER_Fast\n"
                                    "expect TinDem.TileMinX 5000\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("error TIN2RASTER_Fast \"Subscript out of range"),
            std::string::npos)
      << played.transcript;
}

}  // namespace
}  // namespace sylvomex
