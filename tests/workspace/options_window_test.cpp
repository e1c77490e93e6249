// SPDX-License-Identifier: MIT
#include "workspace/options_window.h"

#include <gtest/gtest.h>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

class OptionsWindow : public testing::Test {
 protected:
  void Expect_Plays(const std::string& script) {
    const PlayedSession played = Play_Script(site_.Folder(), script);
    EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
    transcript_ = played.transcript;
  }
  SmallSite site_;
  std::string transcript_;
};

TEST_F(OptionsWindow, ShowsTheStoredValuesAsText) {
  Expect_Plays(
      "menu Open_Options_Window\nexpect Form2.Visible -1\nexpect Form2.Text1 5\n"
      "expect Form2.Text9 0.03\nexpect Form2.Text5 1000\n"
      "expect Form2.Text12 c:\\data\\Lehtomaa\\Pistedata\\PointData.txt\n"
      "expect Form2.Check3 1\nexpect Form2.Check1 0\nexpect Form2.Label1 \"Z-depth of epipolar "
      "line , m\"\n");
}

TEST_F(OptionsWindow, ApplyTakesEveryRow) {
  std::string script = "key O ctrl\n";
  for (int row = 1; row <= 16; ++row) {
    script += "set Form2.Text" + std::to_string(row) + " " + std::to_string(100 + row) + "\n";
  }
  script +=
      "set Form2.Check1 1\nset Form2.Check2 1\nset Form2.Check3 0\n"
      "press Form2.Apply_Options_Changes\nexpect Form2.Visible -1\n"
      "expect EpipolarZDepth 101\nexpect StepLength 102\nexpect RmseBeepOneLevel 103\n"
      "expect RmseBeepTwoLevel 104\nexpect RmseBeepOneFrequency 105\n"
      "expect RmseBeepTwoFrequency 106\nexpect RmseBeepOneDuration 107\n"
      "expect RmseBeepTwoDuration 108\nexpect IterationStopDX 109\nexpect IterationStopDY 110\n"
      "expect IterationStopDZ 111\nexpect ObservationFileName 112\n"
      "expect PlotTreesMinHeight 113\nexpect PanCenter \"114 115 116\"\n"
      "expect IncludeTreeNumbers -1\nexpect PlotAllAfterSave -1\nexpect AutoEpipolar 0\n";
  Expect_Plays(script);
}

TEST_F(OptionsWindow, ABlankRowFailsThereAndTheRowsBeforeStayChanged) {
  Expect_Plays(
      "menu Open_Options_Window\nset Form2.Text1 9\nset Form2.Text4 70\nset Form2.Text5 \"\"\n"
      "set Form2.Text6 1\npress Form2.Apply_Options_Changes\nexpect EpipolarZDepth 9\n"
      "expect RmseBeepTwoLevel 70\nexpect RmseBeepOneFrequency 1000\n"
      "expect RmseBeepTwoFrequency 600\nexpect Form2.Visible -1\n");
  EXPECT_EQ(transcript_,
            "message \"Cannot convert parameter values into numeric/string values, try again!\" "
            "title=\"\" buttons=ok -> ok\n");
}

TEST_F(OptionsWindow, ApplyAndCloseClosesAlsoAfterAFailure) {
  Expect_Plays(
      "menu Open_Options_Window\nset Form2.Text5 abc\nmenu Form2.Apply\nexpect Form2.Visible 0\n");
}

TEST_F(OptionsWindow, ClosingWithoutApplyingLosesWhatWasTyped) {
  Expect_Plays(
      "menu Open_Options_Window\nset Form2.Text1 9\nmenu Form2.close_window\n"
      "expect EpipolarZDepth 5\nexpect Form2.Visible 0\nmenu Open_Options_Window\n"
      "expect Form2.Text1 5\n");
}

TEST_F(OptionsWindow, FrequenciesRoundHalfToEven) {
  Expect_Plays(
      "menu Open_Options_Window\nset Form2.Text5 1000.5\nset Form2.Text6 1001.5\n"
      "menu Form2.Apply\nexpect RmseBeepOneFrequency 1000\nexpect RmseBeepTwoFrequency 1002\n");
}

TEST_F(OptionsWindow, ATypedPanCentreIsOverwrittenByTheNextImageWithoutASolution) {
  Expect_Plays("menu Open_Options_Window\nset Form2.Text16 55\nmenu Form2.Apply\nfile " +
               site_.Write_Image("a", {}) +
               "\nmenu Add_images_to_set\nexpect PanCenter \"5 2 200\"\n");
}

TEST_F(OptionsWindow, AboutKeepsItsTypingErrorAndClosesByItsButton) {
  Expect_Plays(
      "menu Open_About_Window\nprint Form4.Label1\npress Form4.OK_Button\n"
      "expect Form4.Visible 0\n");
  EXPECT_NE(transcript_.find(
                " It can be used for 3D measurements with stereoscopic or monoscopic, multiple "
                "image-matching. Lidar data and other vector data can be  oevrlayed and analysed "
                "in combination with the imagery."),
            std::string::npos)
      << transcript_;
}

}  // namespace
}  // namespace sylvomex
