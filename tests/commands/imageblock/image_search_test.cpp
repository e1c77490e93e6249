// SPDX-License-Identifier: MIT
// The image searches and the loading of their results, by script.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

std::string Set_Solution(double X, double Y, double Z) {
  std::ostringstream script;
  script.precision(17);
  script << "input " << X << "\ninput " << Y << "\ninput " << Z << "\nmenu Set_3D_solution\n"
         << "say search\n";
  return script.str();
}

struct Search : testing::Test {
  SmallSite site;

  [[nodiscard]] PlayedSession Play(const std::string& script) const {
    return Play_Script(site.Folder(), script);
  }
  static std::string After(const PlayedSession& played) {
    const std::string mark = "say search\n";
    return played.transcript.substr(played.transcript.find(mark) + mark.size());
  }
  [[nodiscard]] bool Has(const std::string& name) const { return site.Folder().Has(name); }
};

// Aerial cameras at 1000 m: 1 sees X = 50 at film 0.01, 2 is 10 km away, 3 has a narrow frame that
// just misses the point, 4 has the constant 0.2 and its wide limits.
const char* const kAerialTable =
    "1,-,0.2045,0,0,0,0,0,1000,s 1,c:\\data\\im 1.hdr,photo\n"
    "2,-,0.2045,0,0,0,10000,0,1000,s 2,c:\\data\\im2.hdr,photo\n"
    "3,-,0.105,0,0,0,-450,0,1000,s 3,c:\\data\\im3.hdr,photo\n"
    "4,-,0.2,0,0,0,-450,0,1000,s 4,c:\\data\\im4.hdr,photo\n";

TEST_F(Search, AerialHitsWriteOneFileEach) {
  site.Folder().Write("c/data/cam_data_j.csv", kAerialTable);
  site.Folder().Write("c/data/Imafiles/OLD.TXT", "old");
  site.Folder().Write("c/data/Imafiles/keep.hdr", "x");
  const PlayedSession played = Play(Set_Solution(50.25, -3, 0) + "menu Find_Images_With_XYZ_Sol\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(After(played),
            "message \"Written 2 files in c:\\Data\\Imafiles\" title=\"\" buttons=ok -> ok\n");
  EXPECT_EQ(site.Folder().Read("c/data/Imafiles/photo_s 1.txt"),
            "1,c:\\data\\im 1.hdr,50.25,-3,0\n");
  EXPECT_EQ(site.Folder().Read("c/data/Imafiles/photo_s 4.txt"),
            "4,c:\\data\\im4.hdr,50.25,-3,0\n");
  EXPECT_FALSE(Has("c/data/Imafiles/photo_s 2.txt"));
  EXPECT_FALSE(Has("c/data/Imafiles/photo_s 3.txt"));
  EXPECT_FALSE(Has("c/data/Imafiles/OLD.TXT"));
  EXPECT_TRUE(Has("c/data/Imafiles/keep.hdr"));
  EXPECT_FALSE(Has("c/data/ImaFiles"));  // the existing folder is found for both spellings
}

TEST_F(Search, AerialSearchLeavesTheSolutionFlagUnchanged) {
  site.Folder().Write("c/data/cam_data_j.csv", "1,-,0.2,0,0,0,0,0,1000,a,b.hdr,c\n");
  site.Folder().Make_Folder("c/data/ImaFiles");
  const PlayedSession played = Play("menu Find_Images_With_XYZ_Sol\nexpect SolutionValid 0\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(Has("c/data/ImaFiles/c_a.txt"));
}

TEST_F(Search, ATableCannotNameAFileOutsideTheFolderOfTheHits) {
  const std::string kept = "an observation\n";
  site.Folder().Write("c/data/Lehtomaa/Pistedata/PointData.txt", kept);
  site.Folder().Make_Folder("c/data/ImaFiles");
  site.Folder().Write("c/data/cam_data_j.csv",
                      "4,-,0.2,0,0,0,0,0,1000,s 4,c:\\data\\im4.hdr,photo\n"
                      "5,-,0.2,0,0,0,0,0,1000,/../../Lehtomaa/Pistedata/PointData,b.hdr,photo\n");
  const PlayedSession played = Play("menu Find_Images_With_XYZ_Sol\n");
  EXPECT_EQ(played.transcript,
            "error Find_Images_With_XYZ_Sol \"Bad content: c:\\data\\cam_data_j.csv, line 2, item "
            "10: \"\"/../../Lehtomaa/Pistedata/PointData\"\" leads out of the folder of the "
            "point-in-image files\"\n");
  EXPECT_EQ(site.Folder().Read("c/data/Lehtomaa/Pistedata/PointData.txt"), kept);
  EXPECT_TRUE(Has("c/data/ImaFiles/photo_s 4.txt"));  // the hits of the lines before it stay
}

TEST_F(Search, AMissingTableKeepsTheOldHits) {
  site.Folder().Write("c/data/ImaFiles/old.txt", "old");
  const PlayedSession played = Play("menu Find_Images_With_XYZ_Sol\n");
  EXPECT_EQ(played.transcript,
            "error Find_Images_With_XYZ_Sol \"File not found: c:\\data\\cam_data_j.csv\"\n");
  EXPECT_TRUE(Has("c/data/ImaFiles/old.txt"));
}

TEST_F(Search, AMissingFolderIsAnErrorOnceThereIsAHit) {
  site.Folder().Write("c/data/cam_data_j.csv", kAerialTable);
  PlayedSession played = Play(Set_Solution(-90000, 0, 0) + "menu Find_Images_With_XYZ_Sol\n");
  EXPECT_EQ(After(played),
            "message \"Written 0 files in c:\\Data\\Imafiles\" title=\"\" buttons=ok -> ok\n");
  played = Play(Set_Solution(50, 0, 0) + "menu Find_Images_With_XYZ_Sol\n");
  EXPECT_EQ(
      After(played),
      "error Find_Images_With_XYZ_Sol \"Path not found: c:\\data\\ImaFiles\\photo_s 1.txt\"\n");
}

TEST_F(Search, ABadLineOfTheTableIsNamedAndTheHitsBeforeItStay) {
  site.Folder().Write("c/data/cam_data_j.csv",
                      "1,-,0.2045,0,0,0,0,0,1000,a,b.hdr,c\n2,-,0.2045,0,0,0,0,0,1000,a,b.hdr\n");
  site.Folder().Make_Folder("c/data/ImaFiles");
  const PlayedSession played = Play(Set_Solution(0, 0, 0) + "menu Find_Images_With_XYZ_Sol\n");
  EXPECT_EQ(played.status, 2);
  EXPECT_EQ(After(played),
            "error Find_Images_With_XYZ_Sol \"Bad content: c:\\data\\cam_data_j.csv, line 2, item "
            "12: the line ends here, 12 items are wanted\"\n");
  EXPECT_TRUE(Has("c/data/ImaFiles/c_a.txt"));
}

TEST(AddImageCentre, ADismissedDialogEndsQuietlyAndLeavesTheSolution) {
  SmallSite site;
  const PlayedSession played =
      Play_Script(site.Folder(),
                  "cancel\nmenu Add_Image_Center_to_XYZ\nexpect ImageCount 0\n"
                  "expect SolutionValid 0\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript.find("error"), std::string::npos);
}

const char* const kAddHit = "file c:\\data\\ImaFiles\\hit.txt\nmenu Add_Image_Center_to_XYZ\n";

TEST_F(Search, AHitIsAddedCentredAndPutOnTheClipboard) {
  site.Write_Image("im", {});
  site.Folder().Write("c/data/ImaFiles/hit.txt", "4020,c:\\data\\im.hdr,10.5,-20.25,0.125\n");
  const PlayedSession played =
      Play(std::string(kAddHit) +
           "print Label4(0)\nprint Label4(1)\nprint Label4(2)\nexpect ImageCount 1\n"
           "expect SolutionValid -1\nexpect Solution3D \"10.5 -20.25 0.125\"\n"
           "expect ObservationRecord.X 10.5\nexpect ObservationRecord.Y -20.25\n"
           "expect ObservationRecord.Z 0.125\nexpect ObservationRecord.FreeInteger 4020\n"
           "expect PanCenter \"0 0 0\"\nexpect Label10 \"Images centered to given XYZ\"\n"
           "print PaneViews(0)\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  // The point lies at column 605, row 500 - 202.525 of the raw file: 1000 - 297.47 = 702.53,
  // where a view of 944 of 1000 rows ends at the file's last ones.
  EXPECT_EQ(played.transcript,
            "file title=\"Header file for a Point in an Image\" filter=\"Text files "
            "(*.txt)|*.txt\" folder=\"c:\\data\\Imafiles\" -> \"c:\\data\\ImaFiles\\hit.txt\"\n"
            "clipboard 944x944\n"
            "Label4(0) = 10.500\nLabel4(1) = -20.250\nLabel4(2) = .125\n" +
                played.transcript.substr(played.transcript.find("PaneViews(0)")));
  EXPECT_NE(played.transcript.find(" 944 944 1 1\n"), std::string::npos);
}

TEST_F(Search, FindAndAddWorkTogether) {
  SmallImage image;
  image.c = 0.105;
  site.Write_Image("im", image);
  site.Folder().Write("c/data/cam_data_j.csv",
                      "77,-,0.105,0,0,0,0,0,1000,b,c:\\data\\im.hdr,hit\n");
  site.Folder().Make_Folder("c/data/ImaFiles");
  const PlayedSession played =
      Play(Set_Solution(1.0 / 3, 2, 3) +
           "menu Find_Images_With_XYZ_Sol\ninput 0\ninput 0\ninput 0\nmenu Set_3D_solution\n"
           "file c:\\data\\ImaFiles\\hit_b.txt\nmenu Add_Image_Center_to_XYZ\n"
           "expect Solution3D \"0.333333333333333 2 3\"\n"
           "expect ObservationRecord.FreeInteger 77\nexpect ImageCount 1\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

TEST_F(Search, AHitWithoutItsHeaderLoadsNothing) {
  site.Folder().Write("c/data/ImaFiles/hit.txt", "1,c:\\data\\none.hdr,10,20,30\n");
  const PlayedSession played = Play(
      "file c:\\data\\ImaFiles\\hit.txt\n"
      "try menu Add_Image_Center_to_XYZ\nexpect ImageCount 0\nexpect SolutionValid 0\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find(
                "error Add_Image_Center_to_XYZ \"File not found: c:\\data\\none.hdr\"\n"),
            std::string::npos);
}

TEST_F(Search, AMalformedHitChangesNothing) {
  for (const char* hit : {"1,c:\\data\\im.hdr,10,20\n", "1,c:\\data\\im.hdr,10,twenty,30\n",
                          "99999,c:\\data\\im.hdr,10,20,30\n", ""}) {
    site.Folder().Write("c/data/ImaFiles/hit.txt", hit);
    const PlayedSession played = Play(
        "file c:\\data\\ImaFiles\\hit.txt\ntry menu Add_Image_Center_to_XYZ\n"
        "expect ImageCount 0\nexpect Solution3D \"0 0 0\"\n");
    EXPECT_EQ(played.status, 0) << played.reason;
    EXPECT_NE(played.transcript.find("ImaFiles\\hit.txt, line "), std::string::npos)
        << played.transcript;
  }
}

TEST_F(Search, AHitOnAFullBlockHasTheLimitsOfAddingAnImage) {
  const std::string header = site.Write_Image("im", {});
  site.Folder().Write("c/data/ImaFiles/hit.txt", "1,c:\\data\\im.hdr,1,2,3\n");
  std::string script;
  for (int k = 0; k < 9; ++k) script += "file " + header + "\nmenu Add_images_to_set\n";
  const PlayedSession played =
      Play(script + "file c:\\data\\ImaFiles\\hit.txt\n" +
           "try menu Add_Image_Center_to_XYZ\nexpect ImageCount 10\n" + kAddHit);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("message \"At the moment cannot allow more than 9 images (three "
                                   "rows of Picture-boxes to hold the images!)\""),
            std::string::npos);
}

// Terrestrial cameras with c = 0.007 looking straight down from 10 m: film x = 0.0007 X.
struct TerrestrialSearch : Search {
  TerrestrialSearch() {
    site.Folder().Make_Folder("c/data/G6/Imafiles");
    for (int id = 1; id <= 3; ++id) {
      SmallImage image;
      image.id = id;
      image.c = 0.007;
      image.a1 = image.b2 = 150000;
      image.X0 = id;
      image.Z0 = 10;
      site.Write_Image("t" + std::to_string(id), image);
    }
  }

  // The table of cameras 1 to 3; camera 2 has another constant and is not tested.
  void Write_Table() const {
    site.Folder().Write("c/data/cam_data_G6_j.csv",
                        "1,-,0.007,0,0,0,1,0,10,a,c:\\data\\t1.hdr,g\n"
                        "2,-,0.0085,0,0,0,2,0,10,b,c:\\data\\t2.hdr,g\n"
                        "3,-,0.007,0,0,0,3,0,10,c,c:\\data\\t3.hdr,g\n");
  }
};

TEST_F(TerrestrialSearch, LoadsTheImagesThatShowTheWholeRing) {
  Write_Table();
  site.Folder().Write("c/data/G6/Imafiles/old.txt", "old");
  const PlayedSession played = Play(
      "file c:\\data\\t2.hdr\nmenu Add_images_to_set\n" + Set_Solution(2, 0, 0) +
      "menu Find_And_Read_Terr_Images_in_Which\nexpect ImageCount 2\n"
      "expect ImageBlock(0).ImageId 1\nexpect ImageBlock(1).ImageId 3\nexpect SolutionValid -1\n"
      "print Label4(0)\nprint Label4(2)\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(After(played), "Label4(0) = 2.000\nLabel4(2) = .000\n");
  EXPECT_EQ(site.Folder().Read("c/data/G6/Imafiles/g_a.txt"), "1,c:\\data\\t1.hdr,2,0,0\n");
  EXPECT_TRUE(Has("c/data/G6/Imafiles/g_c.txt"));
  EXPECT_FALSE(Has("c/data/G6/Imafiles/old.txt"));
}

TEST_F(TerrestrialSearch, AnImageThatCutsTheRingIsNotAHit) {
  Write_Table();
  // A reach of 3.85 m: camera 1 sees X up to 4.85, and the ring up to 4.75.
  const PlayedSession played = Play(Set_Solution(4.8, 0, 0) +
                                    "menu Find_And_Read_Terr_Images_in_Which\n"
                                    "expect ImageCount 1\nexpect ImageBlock(0).ImageId 3\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

std::vector<std::string> Lines_Starting(const std::string& text, const std::string& start) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with(start)) lines.push_back(line);
  }
  return lines;
}

TEST_F(TerrestrialSearch, DrawsTheClosedRingAndAVerticalLineOnEveryImage) {
  Write_Table();
  const PlayedSession played = Play(Set_Solution(2, 0, 0.05) +
                                    "menu Find_And_Read_Terr_Images_in_Which\n"
                                    "print PaneViews(1)\nmarks Picture1(1)\n");
  ASSERT_EQ(played.status, 0) << played.reason;
  std::vector<std::vector<double>> ring;
  std::vector<std::vector<double>> plumb;
  for (const std::string& line : Lines_Starting(played.transcript, "line ")) {
    std::istringstream numbers(line.substr(5));
    std::vector<double> values;
    for (double value; numbers >> value;) values.push_back(value);
    ASSERT_EQ(values.size(), 8U);
    if (values[6] == 0 && values[7] == 2) ring.push_back(values);
    if (values[4] == 255 && values[5] == 0 && values[7] == 1) plumb.push_back(values);
  }
  ASSERT_EQ(ring.size(), 21U);
  for (std::size_t i = 0; i < 21; ++i) {
    EXPECT_EQ(ring[i][4], 255);
    EXPECT_EQ(ring[i][5], 255);
    EXPECT_EQ(ring[i][2], ring[(i + 1) % 21][0]);  // closed
    EXPECT_EQ(ring[i][3], ring[(i + 1) % 21][1]);
  }
  // The second image is at X0 = 3: the first ring point (1.905, 0, 0.05) has film
  // x = 0.007 x -1.095 / 9.95 and column 500 + 150000 x; the vertical line starts at X = 2 and ends
  // at the -99 of the missing model, where x = -0.007 / 109.
  std::istringstream view(Lines_Starting(played.transcript, "PaneViews(1) = ").at(0).substr(15));
  double view_col = 0;
  view >> view_col;
  EXPECT_NEAR(ring[0][0], 500 - 150000 * 0.007 * 1.095 / 9.95 - view_col, 1e-6);
  ASSERT_EQ(plumb.size(), 1U);
  EXPECT_NEAR(plumb[0][0], 500 - 150000 * 0.007 / 9.95 - view_col, 1e-6);
  EXPECT_NEAR(plumb[0][2], 500 - 150000 * 0.007 / 109 - view_col, 1e-6);
}

TEST_F(TerrestrialSearch, NoHitLeavesAnEmptyBlockWithoutASolution) {
  Write_Table();
  const PlayedSession played =
      Play("file c:\\data\\t2.hdr\nmenu Add_images_to_set\n" + Set_Solution(500, 0, 0) +
           "menu Find_And_Read_Terr_Images_in_Which\nexpect ImageCount 0\n"
           "expect SolutionValid 0\nexpect Label4(0) 500.000\n"
           "expect Label10 \"Removed all images from the set succesfully\"\n");
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
}

TEST_F(TerrestrialSearch, AMissingHeaderEndsTheCommandAndTheImagesBeforeItStay) {
  Write_Table();
  std::filesystem::remove(site.Folder().Path() / "c/data/t3.hdr");
  const PlayedSession played =
      Play(Set_Solution(2, 0, 0) +
           "try menu Find_And_Read_Terr_Images_in_Which\n"
           "expect ImageCount 1\nexpect ImageBlock(0).ImageId 1\n"
           "expect Picture1(0).Visible -1\nexpect Picture1(1).Visible 0\n");
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  EXPECT_NE(played.transcript.find("error Find_And_Read_Terr_Images_in_Which \"File not found: "
                                   "c:\\data\\t3.hdr\"\n"),
            std::string::npos);
}

TEST_F(TerrestrialSearch, AMissingOrShortRawFileIsNamedAndTheImagesBeforeItStay) {
  Write_Table();
  const std::filesystem::path raw = site.Folder().Path() / "c/data/t3.raw";
  for (const char* cause : {"Input past end of file: c:\\data\\t3.raw: the header tells 3000000 "
                            "bytes, the file has 4",
                            "File not found: c:\\data\\t3.raw"}) {
    if (std::string(cause).starts_with("Input")) {
      site.Folder().Write("c/data/t3.raw", "abcd");
    } else {
      std::filesystem::remove(raw);
    }
    const PlayedSession played =
        Play(Set_Solution(2, 0, 0) +
             "try menu Find_And_Read_Terr_Images_in_Which\nexpect ImageCount 1\n"
             "expect ImageBlock(0).ImageId 1\nexpect ImageBlock(1).ImageId 0\n"
             "expect Picture1(1).Visible 0\n"
             "expect Label10 \"Images centered to given XYZ\"\n");
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    EXPECT_EQ(After(played),
              "error Find_And_Read_Terr_Images_in_Which \"" + std::string(cause) + "\"\n");
  }
}

TEST_F(TerrestrialSearch, TheGroundOfTheModelIsShownAtTheEnd) {
  Write_Table();
  std::string cells;
  for (int i = 0; i < 100; ++i) {
    const float height = -1.5F;
    cells.append(reinterpret_cast<const char*>(&height), sizeof height);
  }
  site.Folder().Write("c/data/dem.raw", cells);
  site.Folder().Write("c/data/dem.hdr", "10\n10\n-5\n-5\n1\n-99\nc:\\data\\dem.raw\n");
  const PlayedSession played =
      Play("file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n" + Set_Solution(2, 0, 0) +
           "menu Find_And_Read_Terr_Images_in_Which\nprint Label10\n");
  EXPECT_EQ(After(played), "Label10 = Ground: -1.50 m Difference: 1.50 m\n");
}

TEST_F(Search, FindingTreesInLidarIsDisabled) {
  const PlayedSession played = Play("command Find_Trees_Based_On_Lidar\n");
  EXPECT_EQ(played.transcript,
            "message \"This routine is disabled\" title=\"\" buttons=ok -> ok\n");
}

}  // namespace
}  // namespace sylvomex
