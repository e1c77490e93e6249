// SPDX-License-Identifier: MIT
// Whole crown commands by script, over two vertical photographs 300 m apart: c = 0.1 m, 10 um
// pixels, 1000 m above Z = 0, the second one's columns shifted so that it shows the same place.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "commands/crowns/model_trees.h"
#include "platform/number_text.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr double kX = 2516450, kY = 6857050;
constexpr double kBase = 300;  // metres between the cameras
const CrownShape kNarrow{0.05, 0.8, 0.2};

struct CrownSession : testing::Test, TreePulses {
  SmallSite site;
  const TemporaryFolder& folder = site.Folder();

  CrownSession() {
    for (int k = 0; k < 2; ++k) {
      site.Write_Image(k == 0 ? "a" : "b", Photograph(k));
      folder.Write(k == 0 ? "c/data/a.raw" : "c/data/b.raw", Textured_Raw(k));
    }
    folder.Write("c/data/JetColorMAP.csv", Test_Colour_Map());
    folder.Write("c/data/als2006_path.hdr", "c:\\als06\\\n");
    folder.Make_Folder("c/als06");
    folder.Make_Folder("c/data/exotics");
    Write_Ground();
  }

  static SmallImage Photograph(int k) {
    SmallImage image;
    image.id = 100 + k;
    image.X0 = kX - kBase * k;
    image.Y0 = kY;
    if (k == 1) image.a0 = 500 - 3000;
    return image;
  }

  // A texture without repetition (xorshift-multiply), another one for each image.
  static std::uint8_t Texture(int image, int col, int raw_row) {
    std::uint32_t n =
        static_cast<std::uint32_t>(col + 1000 * raw_row + 1000000 * image) * 2654435761U;
    n = (n ^ (n >> 15U)) * 2246822519U;
    return static_cast<std::uint8_t>((n ^ (n >> 13U)) >> 8U);
  }
  static std::string Textured_Raw(int k) {
    std::string bytes(1000 * 1000 * 3, '\0');
    for (int row = 0; row < 1000; ++row) {
      for (int col = 0; col < 1000; ++col) {
        bytes[static_cast<std::size_t>(3 * (1000 * row + col) + 1)] =
            static_cast<char>(Texture(k, col, row));
      }
    }
    return bytes;
  }

  // Flat at 100 m over the tile.
  void Write_Ground() const {
    std::string cells;
    for (int i = 0; i < 21 * 21; ++i) Append_Value(cells, 100.0F);
    folder.Write("c/data/dem.bin", cells);
    folder.Write("c/data/dem.hdr", "21\n21\n2516350\n6856950\n10\n0\nc:\\data\\dem.bin\n");
  }
  void Write_Tile() const { folder.Write("c/als06/064_070.bin", Counted_Bytes(pulses)); }

  static std::string Load() {
    return "file c:\\data\\a.hdr\nmenu Add_images_to_set\n"
           "file c:\\data\\b.hdr\nmenu Add_images_to_set\n"
           "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n";
  }
  static std::string Solution(const std::string& Z) {
    return "input 2516450\ninput 6857050\ninput " + Z + "\nmenu Set_3D_solution\nmenu Clear_ima\n";
  }

  // What the script wrote from the first step that is not preparation.
  std::string Transcript(const std::string& begin, const std::string& steps) const {
    const PlayedSession played = Play_Script(folder, begin + "say begin\n" + steps);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    const std::size_t start = played.transcript.find("say begin\n");
    return start == std::string::npos ? "" : played.transcript.substr(start + 10);
  }
};

std::string Value(const std::string& transcript, const std::string& name) {
  const std::size_t at = transcript.find(name + " = ");
  if (at == std::string::npos) return "no " + name;
  const std::size_t begin = at + name.size() + 3;
  return transcript.substr(begin, transcript.find('\n', begin) - begin);
}

double Number(const std::string& transcript, const std::string& name) {
  return Parse_Double(Value(transcript, name));
}

TEST_F(CrownSession, AllometryFitsTheTreesOfTheArea) {
  Add_Tree({kX - 10, kY - 5, 24});
  Add_Tree({kX + 10, kY + 5, 20});
  Write_Tile();
  const std::string transcript = Transcript(
      Load() + Solution("110"),
      "set Check2(1) 1\nbutton yes\ncommand Image_Lidar_Allometry_Algorithm\n"
      "print CrownTrees.Count\nprint LidarPoints.Count\nprint Label10\nprint LidarPlotScale\n"
      "print CrownTrees(2).X\nprint CrownTrees(2).Y\nprint CrownTrees(2).TopZ\n"
      "print CrownTrees(2).Height\nprint CrownTrees(2).PointCount\nprint CrownTrees(2).A\n"
      "print CrownTrees(2).P\nprint CrownTrees(2).B\n");
  EXPECT_TRUE(transcript.starts_with(
      "message \"Lidar density 0.0122 pulses per m2 = 25.254 Kbytes\" title=\"\" buttons=ok -> ok\n"
      "message \"Start crown fiiting\" title=\"\" buttons=yes,no -> yes\n"))
      << transcript;
  EXPECT_EQ(Value(transcript, "CrownTrees.Count"), "2");
  EXPECT_EQ(Value(transcript, "LidarPoints.Count"), "122");
  EXPECT_EQ(Value(transcript, "LidarPlotScale"), "0");
  EXPECT_NEAR(Number(transcript, "CrownTrees(2).X"), kX + 10, 1e-6);
  EXPECT_NEAR(Number(transcript, "CrownTrees(2).Y"), kY + 5, 1e-6);
  EXPECT_EQ(Value(transcript, "CrownTrees(2).TopZ"), "120");
  EXPECT_EQ(Value(transcript, "CrownTrees(2).Height"), "20");
  EXPECT_EQ(Value(transcript, "CrownTrees(2).PointCount"), "60");
  EXPECT_NEAR(Number(transcript, "CrownTrees(2).A"), 0.09, 1e-3);
  EXPECT_NEAR(Number(transcript, "CrownTrees(2).P"), 0.8, 1e-3);
  EXPECT_NEAR(Number(transcript, "CrownTrees(2).B"), 0.4, 1e-3);
  EXPECT_TRUE(Value(transcript, "Label10").ends_with(" RMSE 0.00 m in 60 points")) << transcript;
  EXPECT_EQ(folder.Read("c/data/matlab.txt"), "60 3 180\n");
}

TEST_F(CrownSession, AnsweringNoToTheFittingLeavesNoTrees) {
  Add_Tree({kX, kY, 24});
  Write_Tile();
  const std::string transcript =
      Transcript(Load() + Solution("110"),
                 "button no\ncommand Image_Lidar_Allometry_Algorithm\nprint CrownTrees.Count\n");
  EXPECT_TRUE(transcript.ends_with("buttons=yes,no -> no\nCrownTrees.Count = 0\n")) << transcript;
}

TEST_F(CrownSession, LocalCrownThenTheKeyThatRemindsAndTheKeyThatShows) {
  Add_Tree({kX, kY, 30, kNarrow, 200});
  Write_Tile();
  folder.Write("c/data/LK_trees.txt",
               "5,1,2,2516450.00,6857050.00,130.00,100,30,29,0,3,0.2,0.1,0.7,0.5,\n");
  const std::string transcript = Transcript(
      Load() + Solution("130"),
      "set Check2(0) 1\nkey F4\nprint Label10\nprint LocalTreeRecord.TreeNumber\n"
      "print LocalTreeRecord.LidarCrownWidth\nkey M\nprint LocalTreeRecord.FitRmse\nkey P\n"
      "marks Picture1(0)\n");
  EXPECT_EQ(Value(transcript, "LocalTreeRecord.TreeNumber"), "1");
  EXPECT_TRUE(Value(transcript, "Label10").starts_with("Dcrm: ")) << transcript;
  // The top counts as an echo on the axis, which moves the fit a little.
  const double at_tenth = std::pow(std::sin(0.2), 0.8) * 30 * 0.05 + 0.2;  // depth 1.5 m
  EXPECT_NEAR(Number(transcript, "LocalTreeRecord.LidarCrownWidth"), 2 * at_tenth, 0.2);
  EXPECT_NE(transcript.find("message \"You forgot either Multi-Size TM or crown modelling with "
                            "lidar\" title=\"\" buttons=ok -> ok\nLocalTreeRecord.FitRmse = "),
            std::string::npos)
      << transcript;
  EXPECT_NE(Value(transcript, "LocalTreeRecord.FitRmse"), "0");
  EXPECT_EQ(std::ranges::count(transcript.substr(transcript.find("FitRmse")), '\n'), 5)
      << transcript;
  EXPECT_NE(transcript.find(" 0 255 0 4\n"), std::string::npos) << transcript;
  EXPECT_EQ(std::ranges::count(folder.Read("c/data/testmeasures.txt"), '\n'), 1);
}

TEST_F(CrownSession, LocalCrownWithoutATickedSpeciesIsUnresolved) {
  Add_Tree({kX, kY, 30, kNarrow, 200});
  Write_Tile();
  EXPECT_EQ(Transcript(Load() + Solution("130"), "menu Match_Local_Crown\n"),
            "message \"Species unresolved\" title=\"\" buttons=ok -> ok\n");
}

TEST_F(CrownSession, TheCrownListNamesThePulsesThatHit) {
  TestPulse pulse = Single_Echo({kX, kY, 118, 41, 801.5});
  pulse.slot[3] = {kX + 1, kY, 113, 7, 806.25};
  pulse.echo_count = 2;
  pulses = {pulse, Single_Echo({kX + 9, kY, 119})};
  Write_Tile();
  folder.Write("c/data/exotics/Exotics.csv", "2516450,6857050,120,100,9,4\n");
  EXPECT_EQ(Transcript("", "menu Crown_Intersection_For_LiDAR\nprint Label10\n"), "Label10 = 1\n");
  EXPECT_EQ(folder.Read("c/data/exotics/Output.txt"),
            "2516450.00,6857050.00,120.00,100.00,9,4,2,0.00,0.00,0.00,1500.00,0,0,0,0,0,0,0,7,41,2,"
            "2516451.00,6857050.00,113.00,7,806.25,2516450.00,6857050.00,118.00,41,801.50,\n");
}

TEST_F(CrownSession, TheTwoOtherSearchesAreClosedOff) {
  EXPECT_EQ(Transcript("", "command Find_And_Match_In_Lidar\ncommand Find_Trees_Based_On_Lidar\n"),
            "message \"Routine disabled\" title=\"\" buttons=ok -> ok\n"
            "message \"This routine is disabled\" title=\"\" buttons=ok -> ok\n");
}

// Rows of the measure count from the bottom of the raw file: film 0, 0 is row 500, raw row 499.
// The second photograph shows the clicked ray at column -2500 + 3000000 / (1000 - Z).
struct MultiSizeSession : CrownSession {
  static constexpr int kHalf = 4;  // pixels beside the middle of a template

  static double Second_Col(double Z) { return -2500 + 100000 * 0.1 * kBase / (1000 - Z); }

  void Write_Templates(int image, int col) const {
    std::string pixels;
    for (int row = 499 - kHalf; row <= 499 + kHalf; ++row) {
      for (int c = col - kHalf; c <= col + kHalf; ++c) {
        pixels += static_cast<char>(Texture(image, c, row));
      }
    }
    for (int size = 1; size <= 11; ++size) {
      const std::string name = "c/data/test_" + std::to_string(image) + "_" + std::to_string(size);
      folder.Write(name + ".img", "9 9 4 4\n");
      folder.Write(name + ".raw", pixels);
    }
  }

  // A click on film 0, 0 of the first photograph, wherever its pane shows that.
  std::string Click() const {
    const PlayedSession played = Play_Script(folder, Load() + "print PaneViews(0)\n");
    std::istringstream view(Value(played.transcript, "PaneViews(0)"));
    double view_col = 0, view_row = 0;
    view >> view_col >> view_row;
    return "set Check1(0) 1\nset Check1(1) 1\nmenu Measure_tree_tops_By_Matching\nclick "
           "Picture1(0) " +
           Plain_Text(500 - view_col) + " " + Plain_Text(500 - view_row) + "\n";
  }
};

TEST_F(MultiSizeSession, OneClickFindsTheHeightOfTheTree) {
  // The eleventh height of the ray, 118 - 4.5 + 10 x 0.2 m, lies in another column than the tenth.
  const double top = 115.5;
  ASSERT_NE(std::nearbyint(Second_Col(top)), std::nearbyint(Second_Col(top - 0.2)));
  Write_Templates(0, 500);
  Write_Templates(1, static_cast<int>(std::nearbyint(Second_Col(top))));
  const std::string transcript =
      Transcript(Load() + Solution("118"),
                 Click() + "print Solution3D\nprint Label10\nprint Label4(2)\nmarks Picture1(1)\n");
  double X = 0, Y = 0, Z = 0;
  std::istringstream(Value(transcript, "Solution3D")) >> X >> Y >> Z;
  EXPECT_NEAR(Z, top, 1e-6) << transcript;
  EXPECT_NEAR(X, kX, 0.05);
  EXPECT_EQ(Value(transcript, "Label10"), "0 H: 15.50 m r = 0.67");
  EXPECT_EQ(Value(transcript, "Label4(2)"), "115.50");
  EXPECT_NE(transcript.find(" 255 255 0 3\n"), std::string::npos) << transcript;
}

TEST_F(MultiSizeSession, TemplatesThatAreMissingForATickedImageAreAFileError) {
  Write_Templates(0, 500);
  std::string steps = Click();
  steps.insert(steps.find("click"), "try ");
  const std::string transcript = Transcript(Load() + Solution("118"), steps);
  EXPECT_NE(transcript.find("error Picture1_MouseDown \"File not found"), std::string::npos)
      << transcript;
  EXPECT_NE(transcript.find("test_1_1.img"), std::string::npos) << transcript;
}

TEST_F(MultiSizeSession, ATemplateThatIsCutShortIsNamed) {
  Write_Templates(0, 500);
  Write_Templates(1, 900);
  folder.Write("c/data/test_1_4.raw", "short");
  std::string steps = Click();
  steps.insert(steps.find("click"), "try ");
  const std::string transcript = Transcript(Load() + Solution("118"), steps);
  EXPECT_NE(transcript.find("test_1_4.raw"), std::string::npos) << transcript;
  EXPECT_EQ(std::ranges::count(transcript, '\n'), 1) << transcript;
}

// Bad input: nothing is fitted, and at most one line tells why.

TEST_F(CrownSession, WithoutASolutionTheTileOfTheOriginIsMissing) {
  Write_Tile();
  EXPECT_EQ(Transcript(Load(),
                       "command Image_Lidar_Allometry_Algorithm\nset Check2(0) 1\n"
                       "menu Match_Local_Crown\nprint CrownTrees.Count\n"),
            "CrownTrees.Count = 0\n");
}

TEST_F(CrownSession, WithoutAGroundModelTheGroundLiesAtMinusNinetyNine) {
  Add_Tree({kX, kY, 24});
  Write_Tile();
  const std::string begin =
      "file c:\\data\\a.hdr\nmenu Add_images_to_set\nfile c:\\data\\b.hdr\n"
      "menu Add_images_to_set\n" +
      Solution("124");
  const std::string transcript = Transcript(begin,
                                            "button yes\ncommand Image_Lidar_Allometry_Algorithm\n"
                                            "print CrownTrees(1).Height\n");
  EXPECT_EQ(Value(transcript, "CrownTrees(1).Height"), "223");
}

TEST_F(CrownSession, ATileOfCountZeroAndAMissingOneEndTheCommandsSilently) {
  const std::string steps =
      "command Image_Lidar_Allometry_Algorithm\nset Check2(0) 1\nmenu Match_Local_Crown\n"
      "print CrownTrees.Count\n";
  EXPECT_EQ(Transcript(Load() + Solution("110"), steps), "CrownTrees.Count = 0\n");
  Write_Tile();
  EXPECT_EQ(Transcript(Load() + Solution("110"), steps), "CrownTrees.Count = 0\n");
}

TEST_F(CrownSession, AMissingTileOutsideTheDrivesIsNotCreated) {
  const TemporaryFolder elsewhere;
  folder.Write("c/data/als2006_path.hdr", elsewhere.Path().string() + "/\n");
  folder.Write("c/data/exotics/Exotics.csv", "2516450,6857050,120,100,9,4\n");
  Transcript(Load() + Solution("110"),
             "command Image_Lidar_Allometry_Algorithm\nset Check2(0) 1\nmenu Match_Local_Crown\n"
             "menu Crown_Intersection_For_LiDAR\n");
  EXPECT_TRUE(std::filesystem::is_empty(elsewhere.Path()));
}

TEST_F(CrownSession, ListsWithMissingItemsAndWithoutTheirFolderAreOneMessage) {
  pulses = {Single_Echo({kX, kY, 118})};
  Write_Tile();
  folder.Write("c/data/exotics/Exotics.csv", "2516450,6857050,120,100,9,4\n2516450,68");
  const std::string cut = Transcript("", "try menu Crown_Intersection_For_LiDAR\n");
  EXPECT_NE(cut.find("Exotics.csv, line 2"), std::string::npos) << cut;
  EXPECT_EQ(std::ranges::count(cut, '\n'), 1);
  EXPECT_EQ(std::ranges::count(folder.Read("c/data/exotics/Output.txt"), '\n'), 1);
  std::filesystem::remove_all(folder.Path() / "c/data/exotics");
  const std::string missing = Transcript("", "try menu Crown_Intersection_For_LiDAR\n");
  EXPECT_NE(missing.find("Exotics.csv"), std::string::npos) << missing;
  EXPECT_EQ(std::ranges::count(missing, '\n'), 1);
}

}  // namespace
}  // namespace sylvomex
