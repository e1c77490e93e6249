// SPDX-License-Identifier: MIT
// Raw files that shrink while a command reads them: every command that maps one.
#include "faults/shrinking_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>
#include <utility>

#include "commands/matching/matching_site.h"
#include "commands/stereo/stereo_site.h"
#include "commands/surfaces/surface_site.h"
#include "support/flat_model.h"
#include "support/map_files.h"
#include "support/wide_images.h"

namespace sylvomex {
namespace {

constexpr int kRounds = 25;  // of every command

void Expect_To_Survive(const ReadingCommand& reading) {
  Expect_One_Error_For_Each_Mapping(reading);
  Expect_To_Survive_Any_Moment(reading, kRounds);
}

std::string Load(std::initializer_list<const char*> images) {
  std::string script;
  for (const char* image : images) {
    script += std::string("file c:\\data\\") + image + ".hdr\nmenu Add_images_to_set\n";
  }
  return script;
}

std::string Answers(std::initializer_list<const char*> answers) {
  std::string script;
  for (const char* answer : answers) script += std::string("input ") + answer + "\n";
  return script;
}

const std::string kSolution = Answers({"0", "0", "0"}) + "menu Set_3D_solution\n";

struct SmallImages : testing::Test {
  SmallSite site;
  ReadingCommand reading;

  SmallImages() {
    site.Write_Image("a", {.id = 1});
    site.Write_Image("b", {.id = 2, .X0 = 20});
    reading.root = site.Folder().Path();
    reading.before = Load({"a", "b"}) + kSolution;
    reading.raws = {"c/data/a.raw", "c/data/b.raw"};
    reading.outputs = {"c/data/pic0.bmp", "c/data/pic1.bmp"};
  }
};

TEST_F(SmallImages, ShrinkWhileTheyAreCentred) {
  reading.command = "try menu Center_to_xyz_click\n";
  Expect_To_Survive(reading);
}

TEST_F(SmallImages, AreRewrittenWhileTheyAreCentred) {
  if (!kMappingIsSeen) return;
  reading.command = "try menu Center_to_xyz_click\n";
  bool is_first = true;
  const PlayedCommand played = Play_Command(
      reading,
      [&] {
        for (const std::string& raw : reading.raws) {
          std::filesystem::last_write_time(reading.root / raw,
                                           std::filesystem::file_time_type::clock::now());
        }
        after_mapping_raw = [&](const std::filesystem::path& file) {
          if (!std::exchange(is_first, false)) return;
          // Longer than the clock of the files stands still.
          std::this_thread::sleep_for(std::chrono::milliseconds(30));
          std::fstream(file, std::ios::in | std::ios::out | std::ios::binary) << "other pixels";
        };
      },
      [] { after_mapping_raw = nullptr; });
  EXPECT_TRUE(played.went_on) << played.transcript;
  EXPECT_NE(played.transcript.find("a.raw, it was rewritten while it was read"), std::string::npos)
      << played.transcript;
  EXPECT_TRUE(played.outputs_after == played.outputs_before);
}

TEST_F(SmallImages, ShrinkWhileTheyAreZoomed) {
  reading.before += "set Text1(0) 0\nset Text1(1) 0\nset Text1(2) 0\nset Text1(3) 0\n";
  reading.command = "try menu Zoom_1_2\n";
  Expect_To_Survive(reading);
}

TEST_F(SmallImages, ShrinkWhileTheyAreAdded) {
  reading.before = "";
  reading.command = "file c:\\data\\a.hdr\ntry menu Add_images_to_set\n";
  reading.raws = {"c/data/a.raw"};
  Expect_To_Survive(reading);
}

TEST_F(SmallImages, ShrinkWhileTheyAreNormalised) {
  reading.command =
      "input 10\nbutton ok\ninput c:\\data\\\ninput c:\\data\\PAIR.TXT\n"
      "try menu Create_anaglyph_pair\n";
  reading.outputs = {"c/data/1test_left.raw", "c/data/2test_right.raw"};
  Expect_To_Survive(reading);
}

struct OrthoImages : testing::Test {
  SmallSite site;
  ReadingCommand reading;

  OrthoImages() {
    site.Write_Image("a", Wide_Image(1, 0));
    site.Write_Image("b", Wide_Image(2, 800));
    Write_Flat_Model(site.Folder(), 160);
    reading.root = site.Folder().Path();
    reading.before = Load({"a", "b"}) + kLoadFlatModel;
    reading.raws = {"c/data/a.raw", "c/data/b.raw"};
    reading.outputs = {"c/data/ortho.raw"};
    reading.takes_short_files = true;  // its last pixel is repeated
  }
};

TEST_F(OrthoImages, ShrinkUnderAnOrthoimage) {
  reading.command =
      Answers({"0", "-400", "-400", "800", "800", "2", "160", "c:\\data\\ortho.raw"}) +
      "try menu Orto\n";
  Expect_To_Survive(reading);
}

TEST_F(OrthoImages, ShrinkUnderAMosaicOfTheBlock) {
  reading.command =
      Answers({"-300", "-300", "900", "600", "2", "c:\\data\\ortho.raw"}) + "try menu OrthoBlock\n";
  Expect_To_Survive(reading);
}

TEST_F(OrthoImages, ShrinkUnderAMosaicOfACameraTable) {
  site.Folder().Write("c/data/cam_data_G6_j.csv",
                      "1,x,0.2045,0,0,0,0,0,1160,one,c:\\data\\a.hdr,G6\n"
                      "2,x,0.2045,0,0,0,800,0,1160,two,c:\\data\\b.hdr,G6\n");
  site.Folder().Write("c/data/G6/Imafiles/G6_one.txt", site.Folder().Read("c/data/a.hdr"));
  site.Folder().Write("c/data/G6/Imafiles/G6_two.txt", site.Folder().Read("c/data/b.hdr"));
  reading.command = Answers({"300", "0", "498", "100", "2", "c:\\data\\ortho.raw"}) +
                    "try menu Create_an_Ortho_Block_2\n";
  Expect_To_Survive(reading);
}

struct MatchedImages : testing::Test {
  MatchingFiles files;
  ReadingCommand reading;

  MatchedImages() {
    reading.root = files.site.Folder().Path();
    reading.before = Load({"im0", "im1", "im2"}) +
                     "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n" +
                     Answers({"3", "3", "2"}) +
                     "menu Set_3D_solution\nmenu Read_plot_center_data\nset Text4 6\n"
                     "set Text10 1\n" +
                     Answers({"5", "4", "10.9"}) + "menu Set_3D_solution\n";
    reading.raws = {"c/data/im0.raw", "c/data/im1.raw", "c/data/im2.raw"};
  }
};

TEST_F(MatchedImages, ShrinkWhileTemplatesAreCut) {
  reading.command = "try menu Capture_templates\n";
  Expect_To_Survive(reading);
}

TEST_F(MatchedImages, ShrinkWhileTheyAreCorrelated) {
  reading.before += "menu Capture_templates\n";
  reading.command = "try menu Compute_Correlation_Images\n";
  reading.outputs = {"c/data/rkuva0.bmp",    "c/data/rkuva1.bmp",    "c/data/rkuva2.bmp",
                     "c/data/ccor_ima0.raw", "c/data/ccor_ima1.raw", "c/data/ccor_ima2.raw"};
  Expect_To_Survive(reading);
}

struct SurfaceImages : testing::Test {
  SurfaceSite site;
  ReadingCommand reading;

  SurfaceImages() {
    reading.root = site.Path();
    reading.before =
        Load({"im0", "im1", "im2"}) + Answers({"0", "0", "445"}) + "menu Set_3D_solution\n";
    reading.raws = {"c/data/im0.raw", "c/data/im1.raw", "c/data/im2.raw"};
    reading.outputs = {"c/temp/maa.nod", "c/data/testi_89_manual2.txt",
                       "c/temp/FotoKork_Asfalttitie.nod"};
    reading.width = 1000;
    reading.height = 440;
    site.Write("c/data/IMA_polyline.txt",
               "-0.0025,-0.0012\n0.0045,-0.0012\n0.0045,0.0013\n-0.0025,0.0013\n");
  }
};

TEST_F(SurfaceImages, ShrinkUnderASurfacePoint) {
  reading.before += "set Text1(0) 0.001003\nset Text1(1) 0.000503\n";
  reading.command = "try menu Get_Surface_Height\n";
  Expect_To_Survive(reading);
}

TEST_F(SurfaceImages, ShrinkUnderATripletPoint) {
  reading.before += "set Text1(2) 0.000003\nset Text1(3) 0.000503\n";
  reading.command = "try menu Get_surface_single_point_triplet\n";
  Expect_To_Survive(reading);
}

TEST_F(SurfaceImages, ShrinkUnderAPolygonOfAPair) {
  reading.before += "set Text1(0) -0.002\nset Text1(1) 0.003\n";
  reading.command = "try menu Get_Surface_Height_InCdll\n";
  Expect_To_Survive(reading);
}

TEST_F(SurfaceImages, ShrinkUnderAPolygonOfATriplet) {
  reading.before += "set Text1(2) -0.002\nset Text1(3) 0.003\n";
  reading.command = "try menu Triplet_Matching\n";
  Expect_To_Survive(reading);
}

TEST_F(SurfaceImages, ALostSearchLeavesTheSolution) {
  if (!kMappingIsSeen) return;
  reading.before += "set Text1(0) 0.001003\nset Text1(1) 0.000503\nprint Solution3D\n";
  reading.command = "try menu Get_Surface_Height\nprint Solution3D\n";
  const PlayedCommand played = Play_Command(
      reading,
      [&] {
        std::filesystem::last_write_time(reading.root / reading.raws[1],
                                         std::filesystem::file_time_type::clock::now());
        after_mapping_raw = [](const std::filesystem::path& file) {
          std::filesystem::resize_file(file, 0);
        };
      },
      [] { after_mapping_raw = nullptr; });
  EXPECT_NE(played.transcript.find("im1.raw, it became shorter"), std::string::npos)
      << played.transcript;
  EXPECT_NE(played.transcript.find("Solution3D = 0 0 445\n"), std::string::npos)
      << played.transcript;
}

struct StereoRasters : StereoSite {};

TEST_F(StereoRasters, ShrinkUnderTheViewer) {
  ReadingCommand reading;
  reading.root = site.Folder().Path();
  reading.before = "resize Form5 150 130\nmenu Open_Stereo_window\n";
  reading.command = "file c:\\data\\pair.txt\ntry menu Form5.Open_Pair\n";
  reading.raws = {"c/data/left.raw", "c/data/right.raw"};
  reading.outputs = {"c/data/pic_left.bmp"};
  Expect_To_Survive(reading);
}

TEST(MapRaster, ShrinksUnderTheMapWindow) {
  const SmallSite site;
  Write_Map(site.Folder());
  ReadingCommand reading;
  reading.root = site.Folder().Path();
  reading.before = "menu Open_Map_Window\nresize Form8 330 250\n";
  reading.command = "file c:\\data\\map.hdr\ntry menu Form8.Open_a_Map\n";
  reading.raws = {"c/data/map.raw"};
  reading.outputs = {"f/Map.BMP"};
  Expect_To_Survive(reading);
}

}  // namespace
}  // namespace sylvomex
