// SPDX-License-Identifier: MIT
// Every command that can last, cancelled after 0, 1, 2 ... steps of its work: the block prints and
// the files hold what they did before, and the command done again gives what it gives without a
// cancellation before it.
#include <gtest/gtest.h>

#include "commands/heightmodels/tin_site.h"
#include "commands/matching/matching_site.h"
#include "commands/products/products_fixture.h"
#include "commands/surfaces/surface_site.h"
#include "session/cancelling.h"
#include "support/lidar_files.h"

namespace sylvomex {
namespace {

// The search for tree tops.

struct CancelledSearch : testing::Test {
  MatchingFiles files;

  static std::string Steps(int count) {
    std::string script;
    for (const char* name : {"im0", "im1", "im2"}) {
      script += std::string("file c:\\data\\") + name + ".hdr\nmenu Add_images_to_set\n";
    }
    script +=
        "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\nfile c:\\data\\chm.hdr\n"
        "menu Add_Raster_CHM\ninput 3\ninput 3\ninput 2\nmenu Set_3D_solution\n"
        "menu Read_plot_center_data\nset Text4 6\nset Text10 0.25\nset Text3 0.4\n"
        "input 5\ninput 4\ninput 10.9\nmenu Set_3D_solution\nmenu Capture_templates\n";
    const char* const steps[] = {"menu Compute_Correlation_Images\n", "menu Create_XYZ_Point_Set\n",
                                 "menu Compute_Back_Projections\n"};
    for (int k = 0; k < count; ++k) script += steps[k];
    return script;
  }
  void Check(int steps_before, const char* step, std::set<std::string> may_change = {}) {
    Expect_Cancellable(files.site.Folder(), {Steps(steps_before), "", step, std::move(may_change)});
  }
};

TEST_F(CancelledSearch, CreateXYZPointSet) { Check(1, "menu Create_XYZ_Point_Set"); }
TEST_F(CancelledSearch, ComputeBackProjections) { Check(2, "menu Compute_Back_Projections"); }
TEST_F(CancelledSearch, FindClusters) { Check(3, "menu Find_clusters", {"MKres.bin"}); }

TEST_F(CancelledSearch, NoClusterIsLeftOfACancelledSearch) {
  const PlayedSession played =
      Play_Script(files.site.Folder(), Steps(3) +
                                           "menu Find_clusters\nprint ClusterCount\n"
                                           "cancelled 0 menu Find_clusters\nprint ClusterCount\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  const std::string counts = played.transcript.substr(played.transcript.find("ClusterCount = "));
  EXPECT_TRUE(counts.ends_with("\nClusterCount = 0\n")) << counts;
  EXPECT_FALSE(counts.starts_with("ClusterCount = 0\n")) << counts;
}

// Images whose correlation is complete keep it, the others are photographs as before.
TEST_F(CancelledSearch, ComputeCorrelationImagesEndsBetweenTwoImages) {
  std::string kinds;
  for (const long steps : {0, 2, 4}) {
    const PlayedSession played = Play_Script(
        files.site.Folder(), Steps(0) + "history on\ncancelled " + std::to_string(steps) +
                                 " menu Compute_Correlation_Images\nprint ImageKinds(0)\n"
                                 "print ImageKinds(1)\nprint ImageKinds(2)\n");
    EXPECT_EQ(played.status, 0) << played.reason;
    for (const char k : {'0', '1', '2'}) {
      kinds += played.transcript[played.transcript.find(std::string("ImageKinds(") + k) + 16];
    }
  }
  EXPECT_EQ(kinds, "111211221");
}

// Surfaces: the points found so far stay in the node file.

TEST(CancelledSurfaces, PairPolygon) {
  const SurfaceSite site;
  site.Write("c/data/IMA_polyline.txt",
             "-0.0025,-0.0012\n0.0045,-0.0012\n0.0045,0.0013\n-0.0025,0.0013\n");
  const std::string cancelled =
      "set Text1(0) -0.002\nset Text1(1) 0.003\nhistory on\nprint Text1(0)\n"
      "cancelled 6 menu Get_Surface_Height_InCdll\nprint Text1(0)\nprint Solution3D\n";
  const PlayedSession played = site.Play(cancelled);
  ASSERT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(Printed(played, "Text1(0)"), "-0.002");  // the box as before
  EXPECT_EQ(Printed(played, "Solution3D"), "0 0 445");
  const auto lines = site.Lines("c/temp/maa.nod");
  EXPECT_GE(lines.size(), 1u);
  EXPECT_LT(lines.size(), 8u);  // of eight in the whole polygon
  for (const std::string& line : lines) EXPECT_EQ(std::ranges::count(line, ','), 2) << line;
}

// Height models.

struct CancelledHeights : testing::Test {
  SmallSite site;

  CancelledHeights() {
    site.Folder().Make_Folder("c/temp");
    site.Write_Image("a", {});
    Write_Tin(site.Folder(), "a", {.west = -40, .south = -40, .east = 40, .north = 40});
    Write_Tin(site.Folder(), "b", {.west = 1000});
    Write_Flat_Model(site.Folder(), 160);
    site.Folder().Write("c/data/JetColorMAP.csv", Test_Colour_Map());
  }
  static constexpr const char* kTin = "file c:\\data\\a.nod\nfile c:\\data\\a.tri\nmenu Add_Tin\n";
  static constexpr const char* kImage = "file c:\\data\\a.hdr\nmenu Add_images_to_set\n";
};

TEST_F(CancelledHeights, AddTinKeepsTheModelThatWasThere) {
  Expect_Cancellable(site.Folder(),
                     {kTin, "file c:\\data\\b.nod\nfile c:\\data\\b.tri\n", "menu Add_Tin"});
}

// The nodes are read, with looks at the work, before the second file is asked for.
TEST_F(CancelledHeights, TheStepTakesTheAnswersThatWereGivenBeforeTheCancel) {
  std::string nodes;
  for (int k = 0; k < 5000; ++k)
    nodes += std::to_string(k % 100) + "," + std::to_string(k) + ",5\n";
  site.Folder().Write("c/data/long.nod", nodes);
  site.Folder().Write("c/data/long.tri", "0,1,100\n");
  const PlayedSession played =
      Play_Script(site.Folder(),
                  "file c:\\data\\long.nod\nfile c:\\data\\long.tri\ncancelled 0 menu Add_Tin\n"
                  "print TinDem.TriangleCount\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(played.transcript.find("long.tri") != std::string::npos) << played.transcript;
  EXPECT_TRUE(played.transcript.ends_with("TinDem.TriangleCount = 0\n")) << played.transcript;
}

TEST_F(CancelledHeights, AddHeightModelLeavesNone) {
  const std::string again = "file c:\\data\\dem.hdr\ninput 0\ncancelled 0 menu Add_height_Model\n";
  const PlayedSession played =
      Play_Script(site.Folder(), kLoadFlatModel + again +
                                     "print RasterDemLoaded\ncall Get_Raster_Elevation 0 0\n" +
                                     kLoadFlatModel + "call Get_Raster_Elevation 0 0\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(played.transcript.find("RasterDemLoaded = 0\n") != std::string::npos);
  EXPECT_TRUE(played.transcript.ends_with("Get_Raster_Elevation 0 0 = 160\n")) << played.transcript;
}

TEST_F(CancelledHeights, TinToRaster) {
  Expect_Cancellable(site.Folder(), {kTin, "", "menu TIN2RASTER_Fast"});
}

TEST_F(CancelledHeights, RasterOfTheTin) {
  Expect_Cancellable(site.Folder(),
                     {kTin, "button yes\n", "command Create_raster_DEM_from_TIN_DEM"});
}

TEST_F(CancelledHeights, PlotOfTheModel) {
  Expect_Cancellable(site.Folder(), {std::string(kImage) + kLoadFlatModel +
                                         "input 0\ninput 0\ninput 160\nmenu Set_3D_solution\n",
                                     "", "command Test_DEM"});
}

// Products.

struct CancelledProducts : ProductsTest {
  CancelledProducts() {
    site.Write_Image("a", Wide_Image(1, 0));
    site.Write_Image("b", Wide_Image(2, 1000));
    site.Write_Image("near", {.id = 3, .colour = 1});
    site.Folder().Make_Folder("d");
    Write_Flat_Model(site.Folder(), 160);
  }
  static std::string Before() { return Load({"a", "b"}) + kLoadFlatModel; }
};

TEST_F(CancelledProducts, Orthoimage) {
  Expect_Cancellable(site.Folder(), {Before(),
                                     Answers({"0", "-100", "-100", "400", "300", "2", "160"}),
                                     "menu Orto",
                                     {},
                                     "input c:\\data\\o.raw\n"});
}

TEST_F(CancelledProducts, OrthoBlock) {
  Expect_Cancellable(site.Folder(), {Before(),
                                     Answers({"700", "0", "498", "900", "2"}),
                                     "menu OrthoBlock",
                                     {},
                                     "input c:\\data\\block.raw\n"});
}

TEST_F(CancelledProducts, ZonalImages) {
  site.Folder().Write("c/data/circles.txt", "-20,0,0,7,8\n20,0,0,9,8\n");
  Expect_Cancellable(site.Folder(),
                     {Load({"near"}), "file c:\\data\\circles.txt\n", "command Create_Zonal"});
}

TEST_F(CancelledProducts, SubImages) {
  site.Folder().Write("c/data/points.txt", "5,10,0,2,1,c:\\data\\site.raw\n");
  Expect_Cancellable(
      site.Folder(),
      {Load({"near"}), "file c:\\data\\points.txt\n", "menu Write_SUB_images", {"B4_*"}});
}

// Stereo.

TEST(CancelledStereo, AnaglyphPairKeepsTheFormerPairFile) {
  const SmallSite site;
  SmallImage image{.id = 11,
                   .width = 200,
                   .height = 101,
                   .full_width = 200,
                   .full_height = 101,
                   .a0 = 100,
                   .b0 = 50};
  site.Write_Image("i11", image);
  image.id = 12;
  image.X0 = 60;
  site.Write_Image("i12", image);
  site.Folder().Write("c/data/PAIR.TXT", "the former pair\n");
  Expect_Cancellable(site.Folder(),
                     {"file c:\\data\\i11.hdr\nmenu Add_images_to_set\nfile c:\\data\\i12.hdr\n"
                      "menu Add_images_to_set\n",
                      "input 10\nbutton ok\ninput c:\\data\\\ninput c:\\data\\PAIR.TXT\n",
                      "menu Create_anaglyph_pair",
                      {"11test_left.raw"}});
}

// Lidar.

struct CancelledLidar : testing::Test {
  SmallSite site;
  static constexpr double kX = 2516450, kY = 6857050;

  CancelledLidar() {
    const TemporaryFolder& folder = site.Folder();
    SmallImage image;
    image.X0 = kX;
    image.Y0 = kY;
    site.Write_Image("a", image);
    folder.Write("c/data/JetColorMAP.csv", Test_Colour_Map());
    folder.Write("c/data/als2006_path.hdr", "c:\\als06\\\n");
    folder.Write("c/data/als2007_path.hdr", "c:\\als07\\\n");
    for (const char* name : {"c/als06", "c/als07", "c/temp", "d/data/laser"}) {
      folder.Make_Folder(name);
    }
    std::vector<TestPulse> pulses;
    for (int k = 0; k < 1500; ++k) {
      pulses.push_back(Single_Echo({kX + k % 30 * 0.3, kY + k / 30 * 0.1, 110, 73, 780}));
    }
    folder.Write("c/als06/064_070.bin", Counted_Bytes(pulses));
    folder.Write("c/als07/064_070.bin", Counted_Bytes(pulses));
    folder.Write("d/als_2516400_2517500_6856700_6858100_ALS_2007.txt", "");
  }
  void Check(CancelledCommand command) {
    command.before =
        "file c:\\data\\a.hdr\nmenu Add_images_to_set\ninput 2516450\ninput 6857050\ninput 110\n"
        "menu Set_3D_solution\n";
    Expect_Cancellable(site.Folder(), std::move(command));
  }
};

TEST_F(CancelledLidar, Overlay2007) { Check({"", "", "menu Plot_ALS_2007", {"lidtest.txt"}}); }

TEST_F(CancelledLidar, Overlay2006) {
  Check({"", "", "menu Print_ALS_near_solution", {"lidtest.txt"}});
}

TEST_F(CancelledLidar, DensityMap) { Check({"", "", "command Make_Lidar_Intensity_Map"}); }

TEST_F(CancelledLidar, ListingEndsWithAWholeLine) {
  Check(
      {"", "", "command Print_ALS_in_ASCII", {"als_2516400_2517500_6856700_6858100_ALS_2007.txt"}});
}

TEST_F(CancelledLidar, RastersOfEchoes) {
  std::string answers;
  for (const char* answer : {"2516400", "6857100", "100", "100", "2"}) {
    answers += std::string("input ") + answer + "\n";
  }
  Check({"", answers, "command Create_CHM_from_ALS"});
}

// Scripts.

TEST(CancelledStep, FailsWhenTheCommandEndsBefore) {
  const SmallSite site;
  const PlayedSession played = Play_Script(site.Folder(), "cancelled 5 menu Clear_all\n");
  EXPECT_EQ(played.status, 1);
  EXPECT_TRUE(played.reason.find("ended before it was cancelled") != std::string::npos);
}

TEST(CancelledStep, TakesAnEvent) {
  const SmallSite site;
  EXPECT_EQ(Play_Script(site.Folder(), "cancelled 0 say hello\n").status, 1);
  EXPECT_EQ(Play_Script(site.Folder(), "cancelled menu Clear_all\n").status, 1);
}

}  // namespace
}  // namespace sylvomex
