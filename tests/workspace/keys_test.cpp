// SPDX-License-Identifier: MIT
#include "workspace/keys.h"

#include <gtest/gtest.h>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

class Keys : public testing::Test {
 protected:
  std::string Transcript(const std::string& script) {
    const PlayedSession played = Play_Script(site_.Folder(), script);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    return played.transcript;
  }
  SmallSite site_;
};

TEST_F(Keys, LettersMoveTheSolutionByOneStep) {
  EXPECT_EQ(Transcript("key U\nkey u\nkey E\nkey N\nkey n\nkey W\nkey S\nkey D\n"
                       "print Solution3D\nprint SolutionValid\nprint Label4(2)\nprint Label10\n"),
            "Solution3D = 0 1 1\nSolutionValid = 0\nLabel4(2) = 1.00\n"
            "Label10 = Solution moved as D pressed by 1 meters\n");
}

TEST_F(Keys, StepLengthComesFromTheOptions) {
  EXPECT_EQ(Transcript("menu Open_Options_Window\nset Form2.Text2 0.25\nmenu Form2.Apply\n"
                       "key E\nprint Solution3D\nprint Label10\n"),
            "Solution3D = 0.25 0 0\nLabel10 = Solution moved as E pressed by 0.25 meters\n");
}

TEST_F(Keys, ShiftAndCtrlEndTheHandlerAtOnce) {
  EXPECT_EQ(Transcript("key U shift\nkey U ctrl\nkey K ctrl\nprint Solution3D\n"),
            "Solution3D = 0 0 0\n");
}

TEST_F(Keys, AMovedSolutionIsDottedOnThePanesOnePixelUpAndLeft) {
  const std::string transcript = Transcript("file " + site_.Write_Image("a", {}) +
                                            "\nmenu Add_images_to_set\nkey E\nmarks Picture1(0)\n");
  // X = 1: col 510, row 500; the 944 pixel pane starts at raw 29, 29: pane 481, 471.
  EXPECT_NE(transcript.find("point 480 470 255 255 255 3\n"), std::string::npos) << transcript;
}

TEST_F(Keys, DigitsChooseOneOfFourSpecies) {
  EXPECT_EQ(Transcript("key 1\nkey 3\nprint Check2(0)\nprint Check2(2)\nkey num2\n"
                       "print Check2(1)\nprint Check2(2)\n"),
            "Check2(0) = 0\nCheck2(2) = 1\nCheck2(1) = 1\nCheck2(2) = 0\n");
}

TEST_F(Keys, TheKeyPadsFourPicksTheFourthSpeciesAndMovesDown) {
  EXPECT_EQ(Transcript("key num4\nprint Check2(3)\nprint Solution3D\n"),
            "Check2(3) = 1\nSolution3D = 0 0 -1\n");
}

TEST_F(Keys, F6MovesUpAndThenCaptures) {
  SmallImage second;
  second.id = 2;
  const std::string transcript = Transcript(
      "file " + site_.Write_Image("a", {}) + "\nmenu Add_images_to_set\nfile " +
      site_.Write_Image("b", second) + "\nmenu Add_images_to_set\nkey F6\nprint Solution3D\n");
  EXPECT_NE(transcript.find("clipboard 600x600\nSolution3D = 0 0 1\n"), std::string::npos)
      << transcript;
}

TEST_F(Keys, AcceleratorsChooseMenuItems) {
  EXPECT_EQ(Transcript("key I ctrl\nprint Label10\n"),
            "message \"At least two images are needed for stereo restitution!\" title=\"\" "
            "buttons=ok -> ok\nLabel10 = Could not compute ray intersection for < 2 images\n");
}

TEST_F(Keys, LSavesTheFirstPanesPicture) {
  Transcript("file " + site_.Write_Image("a", {}) + "\nmenu Add_images_to_set\nkey L\n");
  EXPECT_EQ(site_.Folder().Read("c/data/0000.bmp"), site_.Folder().Read("c/data/pic0.bmp"));
}

TEST_F(Keys, LWithoutAPictureReportsSo) {
  EXPECT_EQ(Transcript("try key L\n"),
            "error Form_KeyDown \"Bad content: the first pane holds no picture to save as "
            "c:\\data\\0000.bmp\"\n");
}

TEST_F(Keys, TheTickedSpeciesBoxUnticksTheOthers) {
  EXPECT_EQ(Transcript("set Check2(0) 1\nset Check2(3) 1\nprint Check2(0)\nprint Check2(3)\n"),
            "Check2(0) = 0\nCheck2(3) = 1\n");
}

TEST_F(Keys, MatchingModeAndItsBoxMirrorEachOther) {
  EXPECT_EQ(Transcript("menu Measure_tree_tops_By_Matching\nprint Check5\nset Check5 0\n"
                       "print Measure_tree_tops_By_Matching\n"),
            "Check5 = 1\nMeasure_tree_tops_By_Matching = 0\n");
}

TEST_F(Keys, ModesDoNotExcludeOneAnother) {
  EXPECT_EQ(Transcript("menu Draw_Polygon\nmenu Draw_XYZ_Polygon\nmenu Measure_Triplet\n"
                       "print Draw_Polygon\nprint Draw_XYZ_Polygon\nprint Measure_Triplet\n"),
            "Draw_Polygon = 1\nDraw_XYZ_Polygon = 1\nMeasure_Triplet = 1\n");
}

}  // namespace
}  // namespace sylvomex
