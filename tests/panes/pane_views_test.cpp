// SPDX-License-Identifier: MIT
// Zoom, centring and clearing of the panes, by script. The cameras of SmallImage make one pixel
// 0.1 m on the plane Z = 0: X, Y lie at full-image col 500 + 10 X, raw row 500 - 10 Y.
#include <gtest/gtest.h>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

class PaneViews : public testing::Test {
 protected:
  // Two images: panes of 600 x 600, first shown from raw 201, 201.
  std::string Add_Two() {
    SmallImage second;
    second.id = 2;
    return "file " + site_.Write_Image("a", {}) + "\nmenu Add_images_to_set\nfile " +
           site_.Write_Image("b", second) +
           "\nmenu Add_images_to_set\nmenu Center_To_Sub_c_click\n";
  }
  static std::string Solve(const char* x, const char* y, const char* z) {
    return std::string("input ") + x + "\ninput " + y + "\ninput " + z + "\nmenu Set_3D_solution\n";
  }
  void Expect_Plays(const std::string& script) {
    const PlayedSession played = Play_Script(site_.Folder(), script);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
  }
  std::string Transcript(const std::string& script) {
    return Play_Script(site_.Folder(), script).transcript;
  }
  SmallSite site_;
};

TEST_F(PaneViews, CentringOnTheSolutionMarksItAndNamesTheImage) {
  const std::string transcript =
      Transcript(Add_Two() + Solve("3", "-2", "0") +
                 "menu Center_to_xyz_click\nprint PaneViews(0)\nmarks Picture1(0)\n"
                 "print Label10\nprint CenterTarget\n");
  // Col 530, raw row 520: first = 530 - 299, 520 - 299. Scale (1000 - 160) / 0.1.
  EXPECT_NE(transcript.find("PaneViews(0) = 231 221 600 600 1 1\n"
                            "point 299 299 255 255 255 3\n"
                            "text 5 5 \"1    1:08400\" \"Arial\" 20 bold 255 255 255\n"
                            "Label10 = Images centered to given XYZ\nCenterTarget = 3 -2 0\n"),
            std::string::npos)
      << transcript;
}

TEST_F(PaneViews, CentringWithoutAPrincipalDistanceIsTheCommandsErrorNotAnInfiniteScale) {
  SmallImage image;
  image.c = 0;
  const std::string transcript =
      Transcript("file " + site_.Write_Image("a", image) + "\nmenu Add_images_to_set\n" +
                 Solve("3", "-2", "0") + "menu Center_to_xyz_click\nprint Label10\n");
  EXPECT_NE(transcript.find("message \"An error occurred in sub Center_to_xyz_Click() \""),
            std::string::npos)
      << transcript;
  EXPECT_EQ(transcript.find("Inf"), std::string::npos) << transcript;
  EXPECT_NE(transcript.find("Label10 = 3D-value set succesfully\n"), std::string::npos)
      << transcript;
}

TEST_F(PaneViews, AFarSolutionIsLimitedAndShowsTheLastColumns) {
  Expect_Plays(Add_Two() + Solve("90000", "0", "0") +
               "menu Center_to_xyz_click\nexpect PaneViews(0) \"400 201 600 600 1 1\"\n");
}

TEST_F(PaneViews, ARowBeyond32000CentresOnRowZero) {
  Expect_Plays(Add_Two() + Solve("0", "-90000", "0") +
               "menu Center_to_xyz_click\nexpect PaneViews(0) \"201 0 600 600 1 1\"\n");
}

TEST_F(PaneViews, PanCentreGetsAGreenBlock) {
  const std::string transcript =
      Transcript(Add_Two() +
                 "menu Open_Options_Window\nset Form2.Text14 1\nset Form2.Text15 1\n"
                 "set Form2.Text16 0\nmenu Form2.Apply\n"
                 "menu Center_to_pan_center_click\nprint PaneViews(1)\n"
                 "marks Picture1(1)\n");
  // Col 510, raw row 490: first = 211, 191.
  EXPECT_NE(transcript.find("PaneViews(1) = 211 191 600 600 1 1\npoint 298 298 0 255 0 1\n"
                            "point 299 298 0 255 0 1\n"),
            std::string::npos)
      << transcript;
}

TEST_F(PaneViews, AGreyPaneKeepsItsOldBitmapOnThePanCentre) {
  SmallImage grey;
  grey.colour = 0;
  const std::string add = "file " + site_.Write_Image("g", grey) + "\nmenu Add_images_to_set\n";
  Transcript(add);
  const std::string before = site_.Folder().Read("c/data/pic0.bmp");
  // 5, 2, 200 lies at raw 562.5, 475; the window is pushed in from the right edge.
  Expect_Plays(add + "menu Center_to_pan_center_click\nexpect PaneViews(0) \"56 4 944 944 1 1\"\n");
  EXPECT_EQ(site_.Folder().Read("c/data/pic0.bmp"), before);
}

TEST_F(PaneViews, QueriedPositionCentresEveryImage) {
  Expect_Plays(Add_Two() +
               "input 400\ninput 350\nmenu Center_To_Q\n"
               "expect PaneViews(0) \"101 51 600 600 1 1\"\n"
               "expect PaneViews(1) \"101 51 600 600 1 1\"\n");
}

TEST_F(PaneViews, ANonNumericQueryHasTheStartCommandsMessage) {
  const std::string transcript =
      Transcript(Add_Two() + "input abc\nmenu Center_To_Q\nprint PaneViews(0)\n");
  EXPECT_NE(transcript.find("message \"An error occurred in sub Error_in_center_to_sub_c_Click() "
                            "\" title=\"\" buttons=ok -> ok\nPaneViews(0) = 201 201 600 600 1 1\n"),
            std::string::npos)
      << transcript;
}

TEST_F(PaneViews, ZoomSkipsAnImageWithoutAYBoxAndZoomsTheOthers) {
  const std::string transcript =
      Transcript(Add_Two() +
                 "set Text1(0) 0\nset Text1(1) 0\nset Text1(2) 0\nmenu Zoom2_1\n"
                 "print PaneViews(0)\nprint PaneViews(1)\nprint Label1(0)\n");
  // 300 raw columns around col 500: first = 500 - 150 + 1.
  EXPECT_NE(transcript.find("message \"Image 1 has no camera coordinates, skipping it\" title=\"\" "
                            "buttons=ok -> ok\nPaneViews(0) = 351 351 600 600 2 2\n"
                            "PaneViews(1) = 201 201 600 600 1 1\nLabel1(0) = 2.00 351 351\n"),
            std::string::npos)
      << transcript;
}

TEST_F(PaneViews, AnEmptyXBoxIsTheZoomErrorSinceOnlyTheYBoxIsTested) {
  const std::string transcript =
      Transcript(Add_Two() + "set Text1(1) 0\nset Text1(3) \"\"\nmenu Zoom2_1\n");
  EXPECT_NE(transcript.find("message \"Error in aZoom-function. Image observation missing? "
                            "(xy-coords. Click a ref. point first)\""),
            std::string::npos);
}

TEST_F(PaneViews, BothOneToOneItemsDoTheSame) {
  const std::string start = Add_Two() +
                            "set Text1(0) 0\nset Text1(1) 0\nset Text1(2) 0\nset Text1(3) 0\n"
                            "menu Zoom4_1\n";
  Expect_Plays(start + "menu Zoom_1_1\nexpect PaneViews(0) \"201 201 600 600 1 1\"\n");
  Expect_Plays(start + "menu Zoom_1_1b\nexpect PaneViews(0) \"201 201 600 600 1 1\"\n");
}

TEST_F(PaneViews, AWiderViewThanTheRawFileLeavesTheViewPosition) {
  const std::string transcript = Transcript(Add_Two() +
                                            "set Text1(0) 0\nset Text1(1) 0\nset Text1(3) \"\"\n"
                                            "menu Zoom_1_2\nprint PaneViews(0)\n");
  EXPECT_NE(transcript.find("message \"Pan window is too large\""), std::string::npos);
  EXPECT_NE(transcript.find("PaneViews(0) = 201 201 600 600 0.5 0.5\n"), std::string::npos)
      << transcript;
}

TEST_F(PaneViews, CaptureTakesTheSecondPane) {
  const std::string transcript = Transcript(Add_Two() + "menu Capture\n");
  EXPECT_NE(transcript.find("clipboard 600x600\n"), std::string::npos) << transcript;
}

TEST_F(PaneViews, ClearImagesErasesMarksAndKeepsObservations) {
  const std::string transcript =
      Transcript(Add_Two() +
                 "click Picture1(0) 100 100\nmenu Clear_ima\nmarks Picture1(0)\n"
                 "print Check1(0)\nprint CurrentImage\n");
  EXPECT_NE(transcript.find("Check1(0) = 1\nCurrentImage = 0\n"), std::string::npos);
  EXPECT_EQ(transcript.find("line "), std::string::npos);
}

TEST_F(PaneViews, ClearAllDropsObservationsTicksAndMarks) {
  Expect_Plays(Add_Two() +
               "click Picture1(0) 100 100\nmenu Clear_all\nexpect Text1(0) \"\"\n"
               "expect Text1(1) \"\"\nexpect Text12(0) \"\"\nexpect Check1(0) 0\n"
               "expect CurrentImage -1\n");
}

TEST_F(PaneViews, ResizeKeepsTheZoomAndCentresOnTheSolution) {
  Expect_Plays(Add_Two() + Solve("0", "0", "0") +
               "set Text1(0) 0\nset Text1(1) 0\nset Text1(2) 0\nset Text1(3) 0\nmenu Zoom2_1\n"
               "resize Form1 880 700\nexpect PaneWidth 400\n"
               "expect PaneViews(0) \"401 401 400 400 2 2\"\n");
}

}  // namespace
}  // namespace sylvomex
