// SPDX-License-Identifier: MIT
// Create_anaglyph_pair by script over level photographs 60 m apart along X.
#include <gtest/gtest.h>

#include <cmath>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

class AnaglyphPairCommand : public testing::Test {
 protected:
  void Add(const SmallImage& image) {
    const std::string name = "i" + std::to_string(image.id);
    script_ += "file " + site.Write_Image(name, image) + "\nmenu Add_images_to_set\n";
  }
  void Add_Level_Pair() {
    Add({.id = 11,
         .width = 200,
         .height = 101,
         .full_width = 200,
         .full_height = 101,
         .a0 = 100,
         .b0 = 50});
    Add({.id = 12,
         .width = 200,
         .height = 101,
         .full_width = 200,
         .full_height = 101,
         .a0 = 100,
         .b0 = 50,
         .X0 = 60});
  }
  PlayedSession Play(const std::string& answers) const {
    return Play_Script(site.Folder(), script_ + answers + "try menu Create_anaglyph_pair\n");
  }

  SmallSite site;

 private:
  std::string script_;
};

bool Has(const PlayedSession& played, const std::string& text) {
  return played.transcript.find(text) != std::string::npos;
}

TEST_F(AnaglyphPairCommand, NeedsTwoImages) {
  Add({.id = 11});
  EXPECT_TRUE(Has(Play(""), "message \"At least 2 images are needed (0 and 1)!\""));
}

TEST_F(AnaglyphPairCommand, WritesThePairFileAndBothRasters) {
  Add_Level_Pair();
  const PlayedSession played =
      Play("input 10\nbutton ok\ninput c:\\data\\\ninput c:\\data\\PAIR.TXT\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(Has(played,
                  "input \"Give pixel size in um, eg. 42  Original is apprx: 10.0\" "
                  "title=\"Creating normalized image pair\""))
      << played.transcript;
  // Pixels 0 ... 199 and 0 ... 100 span 199 and 100 pixels of 10 micrometres.
  EXPECT_TRUE(Has(played, "Creating Images (2) with width :199 Image height: 100 OK ?"));
  EXPECT_TRUE(Has(played,
                  "input \"Give output path:\" title=\"Normalizing images\" "
                  "default=\"c:\\data\\\""));
  EXPECT_TRUE(Has(played, "default=\"c:\\data\\PAIR.TXT\""));
  EXPECT_TRUE(Has(played, "message \"Normalized images computed!\""));
  const std::string pair = site.Folder().Read("c/data/PAIR.TXT");
  EXPECT_EQ(pair.substr(0, pair.find("\"Projection")),
            "\"Normalized image pair \"\n\"c:\\data\\11test_left.raw\"\n"
            "\"c:\\data\\12test_right.raw\"\n\"Color Mode \"\n1\n\"Xmin, Ymax, pixelwidth\"\n"
            "-0.0010000,0.0005000,0.0000100\n\"Width, Height (pixels)\"\n199,100\n");
  EXPECT_TRUE(pair.ends_with("\"Start point\"\n60.00,.00,165\n"));
  // A level pair keeps its pixels; the middle is clear of rounding at the border.
  const std::string left = site.Folder().Read("c/data/11test_left.raw");
  ASSERT_EQ(left.size(), 199u * 100 * 3);
  const std::string source = site.Folder().Read("c/data/i11.raw");
  for (int row : {10, 50, 90}) {
    EXPECT_EQ(left.substr(static_cast<std::size_t>(3 * (199 * row + 5)), 300),
              source.substr(static_cast<std::size_t>(3 * (200 * row + 5)), 300));
  }
  EXPECT_EQ(site.Folder().Read("c/data/12test_right.raw").size(), left.size());
}

TEST_F(AnaglyphPairCommand, OfMoreThanTwoImagesTheFirstTwoAreTaken) {
  Add_Level_Pair();
  Add({.id = 13, .X0 = 120});
  EXPECT_TRUE(Has(Play("input \"\"\n"),
                  "message \"Creating pair assuming image 0 (left) image 1 is right\""));
}

TEST_F(AnaglyphPairCommand, BothImagesAreResampledAtTheLeftDistance) {
  Add({.id = 11,
       .width = 200,
       .height = 101,
       .full_width = 200,
       .full_height = 101,
       .a0 = 100,
       .b0 = 50});
  Add({.id = 12,
       .width = 200,
       .height = 101,
       .full_width = 200,
       .full_height = 101,
       .c = 0.2,
       .a0 = 100,
       .b0 = 50,
       .phi = -std::atan(0.02),
       .X0 = 60});
  // The right frame, at its own distance of 0.2 m, ends at xn = 0.2 tan(atan(0.02) +
  // atan(0.00099 / 0.2)) = 0.0049905 m; the left one begins at -0.001 m.
  const PlayedSession played =
      Play("input 10\nbutton ok\ninput c:\\data\\\ninput c:\\data\\PAIR.TXT\n");
  EXPECT_TRUE(Has(played, "with width :599 Image height: 100 OK ?")) << played.transcript;
  // Its principal point (column 100) lies at 0.1 m x 0.02 = 0.002 m, 300 pixels from Xmin.
  const std::string right = site.Folder().Read("c/data/12test_right.raw");
  ASSERT_EQ(right.size(), 599u * 100 * 3);
  EXPECT_EQ(right[3 * (599 * 50 + 300)], static_cast<char>(100));
}

TEST_F(AnaglyphPairCommand, AnEmptyAnswerEndsQuietly) {
  Add_Level_Pair();
  const PlayedSession played = Play("input \"\"\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_FALSE(Has(played, "An error"));
}

TEST_F(AnaglyphPairCommand, ATextForThePixelSizeIsRefused) {
  Add_Level_Pair();
  EXPECT_TRUE(Has(Play("input fine\n"),
                  "message \"Give a numeric value for pixel size!\" "
                  "title=\"Creating normalized images for stereo\""));
}

TEST_F(AnaglyphPairCommand, CancelAtTheSizeWritesNothing) {
  Add_Level_Pair();
  const PlayedSession played = Play("input 10\nbutton cancel\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_FALSE(site.Folder().Has("c/data/PAIR.TXT"));
}

TEST_F(AnaglyphPairCommand, ABaseExactlyAlongYIsAnError) {
  Add({.id = 11});
  Add({.id = 12, .Y0 = 60});
  const PlayedSession played = Play("");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_TRUE(Has(played, "message \"An error occurred, resuming\"")) << played.transcript;
}

TEST_F(AnaglyphPairCommand, AWidthAbove32767IsAnError) {
  Add_Level_Pair();
  EXPECT_TRUE(Has(Play("input 0.05\n"), "message \"An error occurred, resuming\""));
}

TEST_F(AnaglyphPairCommand, AFolderThatDoesNotExistIsAnError) {
  Add_Level_Pair();
  EXPECT_TRUE(Has(Play("input 10\nbutton ok\ninput c:\\none\\\ninput c:\\none\\PAIR.TXT\n"),
                  "message \"An error occurred, resuming\""));
}

}  // namespace
}  // namespace sylvomex
