// SPDX-License-Identifier: MIT
// Imported lidar in the workstation's overlays: a vertical photograph 1000 m above an imported
// terrain of 100 m.
#include "site_program/imported_site.h"
#include "support/las_files.h"
#include "support/small_site.h"
#include "support/test_rasters.h"

namespace sylvomex {
namespace {

// In the middle of a tile, whatever whole kilometres the site is shifted by.
constexpr double kX = 384050, kY = 6675050;

struct ImportedLidar : ImportedSite {
  ImportedLidar() {
    TestRaster ground;
    ground.columns = ground.rows = 40;
    ground.place = {kX - 200, 10, 0, kY + 200, 0, -10};
    ground.height = [](int, int) { return 100; };
    const std::string raster = ground.Write(folder.Path() / "ground.tif");
    EXPECT_EQ(Import("dem", {raster}).status, 0);
    shift = Shift();
    SmallImage image;
    image.X0 = kX - shift.X;
    image.Y0 = kY - shift.Y;
    folder.Write("site/c/data/a.raw", SmallSite::Raw_Bytes(image));
    folder.Write("site/c/data/a.hdr", SmallSite::Header_Text(image, "c:\\data\\a.raw"));
    folder.Write("site/c/data/JetColorMAP.csv", Test_Colour_Map());
  }

  /// Three pulses: one echo high up, two echoes, one echo on the ground.
  void Import_Pulses(const std::string& campaign) {
    TestLas las;
    las.points = {{kX + 9, kY, 115, 1, 1, 1, 70},
                  {kX + 5, kY, 118, 1, 2, 2, 70},
                  {kX + 5, kY, 101, 2, 2, 2, 30},
                  {kX, kY + 7, 100, 1, 1, 3, 50}};
    const SitePlayed played = Import("lidar", {folder.Write("a.las", las.Bytes()).native.string(),
                                               "--campaign", campaign, "--flying-height", "1000"});
    EXPECT_EQ(played.status, 0) << played.err;
  }

  /// The transcript of an overlay around the middle.
  std::string Overlay(const std::string& command) {
    char solution[200];
    std::snprintf(solution, sizeof solution, "input %.10g\ninput %.10g\ninput 110\n", kX - shift.X,
                  kY - shift.Y);
    return Played(
        "file c:\\data\\a.hdr\nmenu Add_images_to_set\n"
        "file c:\\data\\models\\dem.hdr\ninput 0\nmenu Add_height_Model\n" +
        std::string(solution) + "menu Set_3D_solution\nmenu Clear_ima\ncommand " + command +
        "\nprint LidarPulses.Count\nmarks Picture1(0)\n");
  }

  static std::ptrdiff_t Points(const std::string& transcript) {
    std::ptrdiff_t points = 0;
    for (std::size_t at = 0; (at = transcript.find("\npoint ", at)) != std::string::npos; ++at) {
      ++points;
    }
    return points;
  }

  Point3D shift;
};

TEST_F(ImportedLidar, TheOverlayOf2007DrawsTheHighSingleEcho) {
  Import_Pulses("2007");
  const std::string transcript = Overlay("Plot_ALS_2007");
  EXPECT_NE(transcript.find("LidarPulses.Count = 3\n"), std::string::npos) << transcript;
  EXPECT_EQ(Points(transcript), 1) << transcript;
}

TEST_F(ImportedLidar, TheOverlayOf2006DrawsEveryEchoOfHighSensors) {
  Import_Pulses("2006");
  const std::string transcript = Overlay("Print_ALS_near_solution");
  EXPECT_NE(transcript.find("LidarPulses.Count = 3\n"), std::string::npos) << transcript;
  EXPECT_EQ(Points(transcript), 4) << transcript;
}

TEST_F(ImportedLidar, TheOverlayOf2004DrawsTheLastEchoAtItsHeight) {
  TestLas las;
  las.points = {{kX + 0.25, kY, 118, 1, 2, 2, 70}, {kX + 0.25, kY, 100.5, 2, 2, 2, 30}};
  ASSERT_EQ(
      Import("lidar", {folder.Write("a.las", las.Bytes()).native.string(), "--campaign", "2004"})
          .status,
      0);
  EXPECT_EQ(Points(Overlay("plot_als_bin_file")), 1);
}

}  // namespace
}  // namespace sylvomex
