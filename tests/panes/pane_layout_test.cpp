// SPDX-License-Identifier: MIT
#include "panes/pane_layout.h"

#include <gtest/gtest.h>

#include "support/address_space_limit.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

// 1280 x 1024: 1024 - 80 = 944 against (1280 - 80) / N.
TEST(PaneSide, OneToThreeImagesShareOneRow) {
  EXPECT_EQ(Pane_Side(1280, 1024, 1), 944);
  EXPECT_EQ(Pane_Side(1280, 1024, 2), 600);
  EXPECT_EQ(Pane_Side(1280, 1024, 3), 400);
}

TEST(PaneSide, FourToSixImagesStandInTwoRows) {
  EXPECT_EQ(Pane_Side(1280, 1024, 4), 380);  // (1280 - 140) / 3
  EXPECT_EQ(Pane_Side(2560, 1024, 6), 444);  // (1024 - 140) / 2 = 442, 442 + 1326 mod 4
}

TEST(PaneSide, SevenToNineImagesOnAWideWindowSubtractTwoHundredFromTheHeight) {
  // (1024 - 140) / 3 = 294.67 is not above 380, so (1024 - 200) / 3 = 274.67, 275, 276.
  EXPECT_EQ(Pane_Side(1280, 1024, 7), 276);
  EXPECT_EQ(Pane_Side(1280, 1024, 9), 276);
}

TEST(PaneSide, SevenToNineImagesOnATallWindowUseTheWidthLessOneHundredAndForty) {
  // (1400 - 140) / 3 = 420 is above (800 - 140) / 3 = 220.
  EXPECT_EQ(Pane_Side(800, 1400, 8), 220);
}

TEST(PaneSide, IsRaisedToAMultipleOfFour) {
  for (int height = 100; height < 1500; height += 7) EXPECT_EQ(Pane_Side(3000, height, 1) % 4, 0);
  EXPECT_EQ(Pane_Side(3000, 681, 1), 604);  // 601 + 1803 mod 4
  EXPECT_EQ(Pane_Side(3000, 682, 1), 604);  // 602 + 1806 mod 4
  EXPECT_EQ(Pane_Side(3000, 683, 1), 604);  // 603 + 1809 mod 4
}

TEST(PaneSide, HalvesRoundToTheEvenSide) {
  EXPECT_EQ(Pane_Side(1085, 3000, 2), 504);  // 502.5 to 502, 502 + 1506 mod 4
}

TEST(PaneSide, IsZeroForNoImageAndAboveNine) {
  EXPECT_EQ(Pane_Side(1280, 1024, 0), 0);
  EXPECT_EQ(Pane_Side(1280, 1024, 10), 0);
}

TEST(PaneSide, AWindowWithoutRoomStillGetsAPane) { EXPECT_EQ(Pane_Side(20, 20, 1), 4); }

TEST(PaneLayout, AWindowBeyondTheLimitIsRefusedAndChangesNothing) {
  SmallSite site;
  const PlayedSession played =
      Play_Script(site.Folder(), "file " + site.Write_Image("a", {}) +
                                     "\nmenu Add_images_to_set\nsay go\n"
                                     "try resize Form1 16385 700\nprint PaneWidth\n"
                                     "print Form1.Width\nresize Form1 32847 32847\n");
  EXPECT_EQ(played.status, 1);
  EXPECT_EQ(played.transcript.substr(played.transcript.find("say go\n") + 7),
            "PaneWidth = 944\nForm1.Width = 1280\n");
  EXPECT_NE(played.reason.find("a window of 32847 x 32847 pixels: a side has 0 to 16384"),
            std::string::npos)
      << played.reason;
}

TEST(PaneLayout, AWindowWhosePanesDoNotFitIntoTheMemoryIsRefusedAndChangesNothing) {
  SmallSite site;
  const std::string add = "file " + site.Write_Image("a", {}) + "\nmenu Add_images_to_set\n";
  const AddressSpaceLimit limit(std::uint64_t{512} << 20);
  const PlayedSession played =
      Play_Script(site.Folder(), add +
                                     "say go\ntry resize Form1 16384 16384\nprint PaneWidth\n"
                                     "print Form1.Width\nprint Picture1(0).Width\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  const std::string transcript = played.transcript.substr(played.transcript.find("say go\n") + 7);
  // 16304 pixels, a multiple of 4: 3 x 16304 x 16304 bytes, once shown and twice in the making.
  EXPECT_TRUE(
      transcript.starts_with("error Form_Resize \"Out of memory: 1 pane of 16304 x 16304 "
                             "pixels takes 2281 MB, "))
      << transcript;
  EXPECT_TRUE(transcript.ends_with(
      "MB are left\"\nPaneWidth = 944\nForm1.Width = 1280\nPicture1(0).Width = 948\n"))
      << transcript;
}

TEST(PaneLayout, AnImageWhosePaneDoesNotFitIntoTheMemoryIsNotAdded) {
  SmallSite site;
  const std::string add = "file " + site.Write_Image("a", {}) + "\ntry menu Add_images_to_set\n";
  const AddressSpaceLimit limit(std::uint64_t{512} << 20);
  const PlayedSession played =
      Play_Script(site.Folder(), add + "print ImageCount\nprint PaneWidth\n", 16384, 16384);
  EXPECT_NE(played.transcript.find("error Add_images_to_set \"Out of memory: 1 pane of 16304"),
            std::string::npos)
      << played.transcript;
  EXPECT_TRUE(played.transcript.ends_with("ImageCount = 0\nPaneWidth = 0\n")) << played.transcript;
}

TEST(PaneLayout, ResizeWithoutImagesLeavesPaneSizeAtZero) {
  SmallSite site;
  const PlayedSession played =
      Play_Script(site.Folder(), "resize Form1 900 700\nprint PaneWidth\nprint PaneHeight\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript, "PaneWidth = 0\nPaneHeight = 0\n");
}

TEST(PaneLayout, PlacesTheControlsOfAPaneInTheSecondRow) {
  SmallSite site;
  std::string script;
  for (int k = 0; k < 5; ++k) {
    SmallImage image;
    image.id = 70 + k;
    script +=
        "file " + site.Write_Image("im" + std::to_string(k), image) + "\nmenu Add_images_to_set\n";
  }
  // Pane 4: second row, second column; PaneWidth 380, Top 380 + 96 + 40, Left 380 + 3 + 3.
  script +=
      "expect PaneWidth 380\n"
      "expect Picture1(4).Left 386\nexpect Picture1(4).Top 516\n"
      "expect Picture1(4).Width 384\nexpect Picture1(4).Height 384\n"
      "expect Label1(4).Left 386\nexpect Label1(4).Top 496\n"
      "expect Check1(4).Left 586\nexpect Check1(4).Top 491\nexpect Check1(4).Width 200\n"
      "expect Check1(4).Caption \"Use: 74\"\n"
      "expect Text1(8).Left 386\nexpect Text1(9).Left 446\nexpect Text1(8).Top 476\n"
      "expect Text12(4).Top 476\nexpect Picture1(4).Visible -1\nexpect Picture1(5).Visible 0\n"
      "expect Text1(10).Visible 0\nexpect Check1(5).Visible 0\nexpect Label1(5).Visible 0\n"
      "expect Label2 \"Measurement number: 1\"\n";
  const PlayedSession played = Play_Script(site.Folder(), script);
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
}

TEST(PaneLayout, ReadOutIsThreeBoxesWideAndPositionBoxStandsTwoBoxesIn) {
  Form1State form;
  SmallSite site;
  const PlayedSession played = Play_Script(
      site.Folder(), "file " + site.Write_Image("a", {}) +
                         "\nmenu Add_images_to_set\nprint Label1(0).Width\nprint Text12(0).Left\n");
  const double box = form.Text1(0).Width;
  std::ostringstream expected;
  expected << "Label1(0).Width = " << 3 * box << "\nText12(0).Left = " << 3 + 2 * box << "\n";
  EXPECT_NE(played.transcript.find(expected.str()), std::string::npos) << played.transcript;
}

}  // namespace
}  // namespace sylvomex
