// SPDX-License-Identifier: MIT
// Centring, loading, image searches, mosaics over archives and crowns, cancelled on their way.
#include <gtest/gtest.h>

#include <filesystem>

#include "commands/crowns/model_trees.h"
#include "commands/products/products_fixture.h"
#include "session/cancelling.h"
#include "support/lidar_files.h"

namespace sylvomex {
namespace {

std::string Solution(const char* X, const char* Y, const char* Z) {
  return std::string("input ") + X + "\ninput " + Y + "\ninput " + Z + "\nmenu Set_3D_solution\n";
}

// Views.

struct CancelledViews : ProductsTest {
  CancelledViews() {
    site.Write_Image("a", {});
    site.Write_Image("b", {.id = 2, .X0 = 100});
  }
};

TEST_F(CancelledViews, CentringShowsAllPanesAsBefore) {
  Expect_Cancellable(site.Folder(), {Load({"a", "b"}) + Solution("20", "10", "3"), "",
                                     "menu Center_to_xyz_click"});
}

TEST_F(CancelledViews, AnImageWhoseLoadingWasCancelledIsNotInTheBlock) {
  Expect_Cancellable(site.Folder(), {Load({"a"}) + Solution("20", "10", "3"),
                                     "file c:\\data\\b.hdr\n", "menu Add_images_to_set"});
}

TEST_F(CancelledViews, ACancelledHitLeavesTheSolutionAndTheBlock) {
  site.Folder().Write("c/data/ImaFiles/hit.txt", "4020,c:\\data\\b.hdr,10.5,-20.25,0.125\n");
  Expect_Cancellable(site.Folder(),
                     {Load({"a"}) + Solution("20", "10", "3"), "file c:\\data\\ImaFiles\\hit.txt\n",
                      "menu Add_Image_Center_to_XYZ"});
}

// Else the panes whose turn has not come show the pictures of other images.
TEST_F(CancelledViews, ARemovalGoesToItsEnd) {
  const std::string before = Load({"a", "b"}) + Solution("20", "10", "3") + "input 0\n";
  const PlayedSession whole = Play(before + "menu Remove_an_image\n" + kState);
  for (const char* steps : {"0", "1", "2"}) {
    const PlayedSession played =
        Play(before + "history on\ntry cancelled " + steps + " menu Remove_an_image\n" + kState);
    EXPECT_EQ(State_Of(played), State_Of(whole)) << played.reason;
  }
}

// Searches.

TEST_F(CancelledViews, TheAerialSearchKeepsTheHitsOfTheLastOne) {
  site.Folder().Write("c/data/ImaFiles/old_1.txt", "of the last search\n");
  site.Folder().Write("c/data/cam_data_j.csv",
                      "1,-,0.2045,0,0,0,0,0,1000,one,c:\\data\\a.hdr,new\n"
                      "2,-,0.2045,0,0,0,100,0,1000,two,c:\\data\\b.hdr,new\n");
  Expect_Cancellable(site.Folder(),
                     {Solution("20", "10", "3"), "", "menu Find_Images_With_XYZ_Sol"});
  EXPECT_TRUE(site.Folder().Has("c/data/ImaFiles/new_one.txt"));
  EXPECT_TRUE(site.Folder().Has("c/data/ImaFiles/new_two.txt"));
  EXPECT_FALSE(site.Folder().Has("c/data/ImaFiles/old_1.txt"));
}

// Both cameras stand 10 m above the point.
TEST_F(CancelledViews, TheTerrestrialSearchKeepsTheImagesThatItHadLoaded) {
  site.Folder().Make_Folder("c/data/G6/ImaFiles");
  site.Folder().Write("c/data/cam_data_G6_j.csv",
                      "1,-,0.007,0,0,0,20,10,13,one,c:\\data\\a.hdr,G6\n"
                      "2,-,0.007,0,0,0,20,10,13,two,c:\\data\\b.hdr,G6\n");
  const PlayedSession played =
      Play(Solution("20", "10", "3") +
           "history on\ncancelled 2 menu Find_And_Read_Terr_Images_in_Which\nprint ImageCount\n"
           "print ImageBlock(0).ImageId\n");
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  EXPECT_TRUE(Has(played, "ImageCount = 1\nImageBlock(0).ImageId = 1\n")) << played.transcript;
  EXPECT_TRUE(site.Folder().Has("c/data/G6/ImaFiles/G6_one.txt"));
  EXPECT_FALSE(site.Folder().Has("c/data/G6/ImaFiles/G6_two.txt"));
}

// Mosaics over archives.

struct CancelledMosaic : ProductsTest {
  CancelledMosaic() {
    site.Write_Image("a", Wide_Image(1, 0));
    site.Write_Image("b", Wide_Image(2, 800));
    for (const char* table : {"c/data/cam_data_G6_j.csv", "c/data/Cam_Data_j_533.csv"}) {
      site.Folder().Write(table,
                          "1,x,0.2045,0,0,0,0,0,1160,one,c:\\data\\a.hdr,G6\n"
                          "2,x,0.2045,0,0,0,800,0,1160,two,c:\\data\\b.hdr,G6\n");
    }
    site.Folder().Write("c/data/G6/Imafiles/G6_one.txt", site.Folder().Read("c/data/a.hdr"));
    site.Folder().Write("c/data/G6/Imafiles/G6_two.txt", site.Folder().Read("c/data/b.hdr"));
    site.Folder().Make_Folder("c/temp");
    Write_Flat_Model(site.Folder(), 160);
  }

  /// The step cancelled after 0, 1, 2 ... steps of its work until it ends before; check(played)
  /// each time. Returns how often it was cancelled.
  template <class Check>
  int Cancel_Everywhere(const std::string& before, const std::string& step, Check&& check) const {
    for (int steps = 0;; ++steps) {
      const PlayedSession played =
          Play(before + "history on\ncancelled " + std::to_string(steps) + " " + step + "\n");
      if (Ended_Before(played)) return steps;
      EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
      if (played.status != 0 || steps > 1000) return steps;
      check(played);
    }
  }

  [[nodiscard]] int Files_In_Temp() const {
    const std::filesystem::directory_iterator entries(site.Folder().Path() / "c/temp");
    return static_cast<int>(std::distance(begin(entries), end(entries)));
  }
};

TEST_F(CancelledMosaic, TheMosaicOfAnArchiveLeavesTheFormerFile) {
  site.Folder().Write("c/data/block.raw", "former");
  const std::string before = Load({"a"}) + kLoadFlatModel + Answers({"300", "0", "498", "4", "2"});
  const int cancelled = Cancel_Everywhere(before, "menu Create_an_Ortho_Block_2", [&](const auto&) {
    EXPECT_EQ(site.Folder().Read("c/data/block.raw"), "former");
  });
  EXPECT_GE(cancelled, 5);  // three tiles and two cameras
  const PlayedSession whole = Play(before + "cancelled 4 menu Create_an_Ortho_Block_2\n" +
                                   Answers({"300", "0", "498", "4", "2", "c:\\data\\block.raw"}) +
                                   "menu Create_an_Ortho_Block_2\n");
  EXPECT_EQ(whole.status, 0) << whole.reason;
  EXPECT_EQ(Pixel("c/data/block.raw", 0), Colour_At(650, 499));
  EXPECT_EQ(Pixel("c/data/block.raw", 249), Colour_At(250 + 249, 499));
}

TEST_F(CancelledMosaic, TheIndexHasTheFilesThatItToldOf) {
  const int cancelled = Cancel_Everywhere(
      Answers({"533", "100", "0"}), "menu Create_An_OrthoIndex", [&](const PlayedSession& played) {
        int told = 0;
        for (std::size_t at = 0;
             (at = played.transcript.find(" written\"", at)) != std::string::npos; ++at) {
          ++told;
        }
        EXPECT_EQ(Files_In_Temp(), told) << played.transcript;
        for (const auto& entry :
             std::filesystem::directory_iterator(site.Folder().Path() / "c/temp")) {
          std::filesystem::remove(entry);
        }
      });
  EXPECT_GE(cancelled, 4);  // two headers, two images
}

// Crowns.

struct CancelledCrowns : testing::Test, TreePulses {
  static constexpr double kX = 2516450, kY = 6857050;
  SmallSite site;

  CancelledCrowns() {
    const TemporaryFolder& folder = site.Folder();
    for (int k = 0; k < 2; ++k) {
      SmallImage image;
      image.id = 100 + k;
      image.X0 = kX + 10 * k;
      image.Y0 = kY;
      site.Write_Image(k == 0 ? "a" : "b", image);
    }
    folder.Write("c/data/JetColorMAP.csv", Test_Colour_Map());
    folder.Write("c/data/als2006_path.hdr", "c:\\als06\\\n");
    folder.Make_Folder("c/als06");
    folder.Make_Folder("c/data/exotics");
    std::string cells;
    for (int i = 0; i < 21 * 21; ++i) Append_Value(cells, 100.0F);
    folder.Write("c/data/dem.bin", cells);
    folder.Write("c/data/dem.hdr", "21\n21\n2516350\n6856950\n10\n0\nc:\\data\\dem.bin\n");
    Add_Tree({kX - 10, kY - 5, 24});
    Add_Tree({kX + 10, kY + 5, 20});
    folder.Write("c/als06/064_070.bin", Counted_Bytes(pulses));
  }

  static std::string Before() {
    return "file c:\\data\\a.hdr\nmenu Add_images_to_set\nfile c:\\data\\b.hdr\n"
           "menu Add_images_to_set\nfile c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n"
           "input 2516450\ninput 6857050\ninput 110\nmenu Set_3D_solution\nset Check2(1) 1\n";
  }
};

TEST_F(CancelledCrowns, AllometryBeforeItsQuestion) {
  Expect_Cancellable(site.Folder(),
                     {Before(), "", "command Image_Lidar_Allometry_Algorithm", {}, "button yes\n"});
}

TEST_F(CancelledCrowns, AllometryWhileItFits) {
  const std::string before = Before() + "history on\n";
  const std::string state = State_Of(Play_Script(site.Folder(), before + kState, 1000, 440));
  for (const char* steps : {"130", "200", "260", "300"}) {
    const PlayedSession played =
        Play_Script(site.Folder(),
                    before + "button yes\ncancelled " + steps +
                        " command Image_Lidar_Allometry_Algorithm\n" + kState,
                    1000, 440);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    EXPECT_EQ(State_Of(played), state) << steps;
  }
}

TEST_F(CancelledCrowns, ACancelledListHoldsTheLinesOfTheCrownsBefore) {
  std::string rows;
  for (const char* place : {"2516440,6857045", "2516460,6857055", "2516440,6857045"}) {
    rows += std::string(place) + ",125,100,9,6\n";
  }
  site.Folder().Write("c/data/exotics/Exotics.csv", rows);
  const auto output_of = [&](const std::string& step) {
    const PlayedSession played = Play_Script(site.Folder(), Before() + step + "\n");
    EXPECT_EQ(played.status, 0) << played.reason;
    return site.Folder().Read("c/data/exotics/Output.txt");
  };
  const std::string whole = output_of("menu Crown_Intersection_For_LiDAR");
  const std::string begun = output_of("cancelled 2 menu Crown_Intersection_For_LiDAR");
  EXPECT_TRUE(begun.ends_with("\n"));
  EXPECT_EQ(begun, whole.substr(0, begun.size()));
  EXPECT_TRUE(begun.starts_with("2516440.00,"));
  EXPECT_EQ(begun.find("2516460.00,"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
