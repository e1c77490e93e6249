// SPDX-License-Identifier: MIT
#include "commands/solver/observation_window.h"

#include <gtest/gtest.h>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

struct MeasuredPoint : SyntheticBlock {
  MeasuredPoint() {
    Add_Camera(0, 0, 1000);
    Add_Camera(200, 0, 1000);
    ObservationRecord& record = w.Observation;
    record.X = 2515000.125;  // a tie: rounds to the even hundredth
    record.Y = 6860000.5;
    record.Z = 0.25;
    record.DemZ = -99;
    record.Rmse = 12.345F;
    record.TreeSpecies = 3;
    record.FreeInteger = -7;
    record.ImageCount = 2;
    record.ImageIds(0) = 100;
    record.ImageIds(1) = 101;
    record.Cols(0) = 1020.4F;
    record.Cols(1) = 7;
    record.Rows(0) = 0.5F;
    record.Rows(1) = 1999.75F;
    record.FreeText = "pine";
    w.NextMeasurementNumber = 41;
    w.CurrentImage = 1;
    Observe_Film(0, 0.001, 0.002);
    Save_measured_point(w);
  }
  std::string Line() { return folder.Read("c/data/points.txt"); }
};

TEST(ObservationWindow, ShowsTheRecord) {
  MeasuredPoint b;
  const Form3State& form = b.w.Form3;
  EXPECT_TRUE(form.Visible);
  EXPECT_EQ(form.ActiveControl, "Text2");
  EXPECT_TRUE(b.w.Form1.Enabled);
  EXPECT_EQ(form.Text1.Text, "41");
  EXPECT_EQ(form.Text2.Text, "3");
  EXPECT_EQ(form.Text3.Text, "-7");
  EXPECT_EQ(form.Text4.Text, "pine");
  EXPECT_EQ(form.Text5.Text, "c:\\data\\points.txt");
  EXPECT_EQ(form.Label6.Caption, "-99.00 m DTM Z");
  EXPECT_EQ(form.Label7.Caption, "2515000.12 m");
  EXPECT_EQ(form.Label8.Caption, "6860000.50 m");
  EXPECT_EQ(form.Label9.Caption, ".25 m");
  EXPECT_EQ(form.Label10.Caption, "12.35 um RMSE");
  EXPECT_EQ(form.Label11.Caption, "2 images");
  EXPECT_EQ(form.Label12.Caption, "100,101");
  EXPECT_EQ(form.Label13.Caption, "01020.40,00007.00");
  EXPECT_EQ(form.Label14.Caption, "00000.50,01999.75");
}

TEST(ObservationWindow, WithoutImagesTheListsAreEmpty) {
  SyntheticBlock b;
  Save_measured_point(b.w);
  EXPECT_EQ(b.w.Form3.Label11.Caption, " images");
  EXPECT_EQ(b.w.Form3.Label12.Caption, "");
  EXPECT_EQ(b.w.Form3.Label14.Caption, "");
}

TEST(AcceptAndSave, AppendsOneLineWithACommaAfterEveryField) {
  MeasuredPoint b;
  b.folder.Write("c/data/points.txt", "earlier\n");
  Form3_Accept_And_Save(b.w);
  EXPECT_EQ(b.Line(),
            "earlier\n41,2515000.12,6860000.50,.25,-99.00,12.35,3,-7,2,"
            "pine                          ,100,101,1020.400,7.000,.500,1999.750,\n");
}

TEST(AcceptAndSave, TakesTheBoxes) {
  MeasuredPoint b;
  b.w.Form3.Text1.Text = "500";
  b.w.Form3.Text2.Text = "255";
  b.w.Form3.Text3.Text = "32767";
  b.w.Form3.Text4.Text = "spruce";
  b.w.Form3.Text5.Text = "c:\\data\\other.txt";
  Form3_Accept_And_Save(b.w);
  EXPECT_EQ(b.w.Observation.MeasurementNumber, 500);
  EXPECT_EQ(b.w.Observation.TreeSpecies, 255);
  EXPECT_EQ(b.w.Observation.FreeInteger, 32767);
  EXPECT_EQ(b.w.Observation.FreeText.Trimmed(), "spruce");
  EXPECT_EQ(b.w.ObservationFileName, "c:\\data\\other.txt");
  EXPECT_TRUE(b.folder.Has("c/data/other.txt"));
  // Numbering continues after the operator's number.
  EXPECT_EQ(b.w.NextMeasurementNumber, 501);
  EXPECT_EQ(b.w.Form1.Label2.Caption, "Measurement number: 501");
}

TEST(AcceptAndSave, ClosesTheWindowAndClearsTheObservations) {
  MeasuredPoint b;
  b.w.Form1.Enabled = false;
  const auto focus = b.w.Form1.focus_version;
  Form3_Accept_And_Save(b.w);
  EXPECT_FALSE(b.w.Form3.Visible);
  EXPECT_TRUE(b.w.Form1.Enabled);
  EXPECT_GT(b.w.Form1.focus_version, focus);
  EXPECT_EQ(b.w.Form1.Text1(0).Text, "");
  EXPECT_EQ(b.w.Form1.Check1(0).Value, 0);
  EXPECT_EQ(b.w.CurrentImage, -1);
  // The record itself is not reset by saving.
  EXPECT_EQ(b.w.Observation.ImageCount, 2);
}

TEST(AcceptAndSave, ThirtyCharactersOfCommentAreAccepted) {
  MeasuredPoint b;
  b.w.Form3.Text4.Text = std::string(30, 'c');
  Form3_Accept_And_Save(b.w);
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_NE(b.Line().find("," + std::string(30, 'c') + ","), std::string::npos);
}

TEST(AcceptAndSave, ThirtyOneCharactersKeepTheWindowOpen) {
  MeasuredPoint b;
  b.w.Form3.Text4.Text = std::string(31, 'c');
  b.w.Form3.Text5.Text = "c:\\data\\other.txt";
  Form3_Accept_And_Save(b.w);
  EXPECT_EQ(b.screen.messages,
            std::vector<std::string>{
                "You have entered a comment longer than 30 characters!, shorten it."});
  EXPECT_TRUE(b.w.Form3.Visible);
  EXPECT_FALSE(b.folder.Has("c/data/points.txt"));
  EXPECT_EQ(b.w.Observation.FreeText.Trimmed(), "pine");
  EXPECT_EQ(b.w.ObservationFileName, "c:\\data\\points.txt");
  EXPECT_EQ(b.w.NextMeasurementNumber, 41);
}

TEST(AcceptAndSave, CommentsAreMeasuredAndPaddedInCharactersNotBytes) {
  std::string letters;
  for (int i = 0; i < 30; ++i) letters += "\u00e4";
  const std::string pine = "m\u00e4nty p\u00e4\u00e4";
  for (const auto& [typed, field] :
       {std::pair{letters, letters}, std::pair{pine, pine + std::string(21, ' ')}}) {
    MeasuredPoint b;
    b.w.Form3.Text4.Text = typed;
    Form3_Accept_And_Save(b.w);
    EXPECT_TRUE(b.screen.messages.empty());
    EXPECT_NE(b.Line().find("," + field + ","), std::string::npos);
  }
  MeasuredPoint b;
  b.w.Form3.Text4.Text = letters + "\u00e4";
  Form3_Accept_And_Save(b.w);
  EXPECT_EQ(b.screen.messages.size(), 1U);
}

TEST(AcceptAndSave, FieldsBeforeABadOneHaveChanged) {
  MeasuredPoint b;
  b.w.Form3.Text1.Text = "8";
  b.w.Form3.Text2.Text = "256";
  b.w.Form3.Text3.Text = "9";
  Form3_Accept_And_Save(b.w);
  EXPECT_EQ(b.screen.messages,
            std::vector<std::string>{
                "Cannot convert data in text-boxes into numeric values, check syntax!"});
  EXPECT_TRUE(b.w.Form3.Visible);
  EXPECT_EQ(b.w.Observation.MeasurementNumber, 8);
  EXPECT_EQ(b.w.Observation.TreeSpecies, 3);
  EXPECT_EQ(b.w.Observation.FreeInteger, -7);
  EXPECT_FALSE(b.folder.Has("c/data/points.txt"));
}

TEST(AcceptAndSave, AFileThatCannotBeWrittenLosesNothing) {
  MeasuredPoint b;
  b.w.Form3.Text5.Text = "c:\\none\\points.txt";
  Form3_Accept_And_Save(b.w);
  EXPECT_EQ(b.screen.messages,
            std::vector<std::string>{"An error occurred in writing the data (record) into file "
                                     "c:\\none\\points.txt"});
  EXPECT_FALSE(b.w.Form3.Visible);
  EXPECT_TRUE(b.w.Form1.Enabled);
  EXPECT_EQ(b.w.NextMeasurementNumber, 41);
  EXPECT_NE(b.w.Form1.Text1(0).Text, "");
  EXPECT_EQ(b.w.Form1.Check1(0).Value, 1);
}

TEST(AcceptAndSave, TheLastNumberIsSavedAndReportedOnce) {
  MeasuredPoint b;
  b.w.Form3.Text1.Text = "32767";
  try {
    Form3_Accept_And_Save(b.w);
    FAIL() << "no failure";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::Overflow);
    EXPECT_NE(std::string(error.what()).find("32767 is saved"), std::string::npos);
  }
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_EQ(b.Line().substr(0, 6), "32767,");
  EXPECT_EQ(b.w.NextMeasurementNumber, 32767);
  EXPECT_FALSE(b.w.Form3.Visible);
  EXPECT_EQ(b.w.Form1.Text1(0).Text, "");
}

TEST(AcceptAndSave, PlotsAllPointsWhenEnabled) {
  MeasuredPoint b;
  b.folder.Write("c/data/JetColorMAP.csv", "1,2,3\n");
  b.w.options.PlotAllAfterSave = true;
  b.w.Observation.X = 100;
  b.w.Observation.Y = 0;
  b.w.Observation.Z = 20;
  Plot_Point(b.w.Form1.Picture1(1), 1, 1, {});
  Form3_Accept_And_Save(b.w);
  const PanePosition at = b.Pane_Of(1, {100, 0, 20});
  ASSERT_EQ(b.Marks(1).size(), 3U);
  EXPECT_NEAR(b.Marks(1)[0].x1, at.px - 1, 1e-6);
  EXPECT_EQ(b.w.Form1.Picture1(1).texts.at(0).text, "41");
}

TEST(ObservationWindow, CancelWritesNothing) {
  MeasuredPoint b;
  b.w.Form1.Enabled = false;
  b.w.Form3.Text1.Text = "99";
  Form3_Cancel(b.w);
  EXPECT_FALSE(b.w.Form3.Visible);
  EXPECT_TRUE(b.w.Form1.Enabled);
  EXPECT_FALSE(b.folder.Has("c/data/points.txt"));
  EXPECT_EQ(b.w.NextMeasurementNumber, 41);
  EXPECT_EQ(b.w.Observation.MeasurementNumber, 0);
}

}  // namespace
}  // namespace sylvomex
