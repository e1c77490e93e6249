// SPDX-License-Identifier: MIT
#include "commands/solver/distance_window.h"

#include <gtest/gtest.h>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

constexpr const char* kFile = "e/MA2_2002_Widths.txt";

struct MeasuredWidth : SyntheticBlock {
  MeasuredWidth() {
    Add_Camera(0, 0, 1000);
    Add_Camera(200, 0, 1000);
    XYDistanceEntry& head = w.XYDistanceEntries(0);
    head.X = 2515000.5;
    head.Y = 6860000;
    head.Z = 181.25;
    head.TreeNumber = 17;
    head.FreeInteger = -2;
    XYDistanceEntry& entry = w.XYDistanceEntries(1);
    entry.X = 3;
    entry.Index = 1;
    entry.ImageCode = 101;
    entry.X0Obj = 10.25;
    entry.X1Obj = 13.25;
    entry.Y0Obj = -4;
    entry.Y1Obj = 0;
    entry.ScaleAtZ = 9800.25F;
    entry.ObservedDistance = 5;
    entry.ObsCoding = "crown";
    entry.SunElevation = 41.5;
    entry.SunAzimuth = 150;
    entry.ObjCamRayAzimuth = 400.25;
    entry.AzimuthDifference = -30;
    entry.OffNadirAngle = 5.75;
    Save_XY_Distances(w);
  }
};

TEST(DistanceWindow, ShowsHeaderAndAllNineEntries) {
  MeasuredWidth b;
  const Form7State& form = b.w.Form7;
  EXPECT_TRUE(form.Visible);
  EXPECT_EQ(form.Label3.Caption, "2515000.50 m ");
  EXPECT_EQ(form.Label4.Caption, "6860000.00 m ");
  EXPECT_EQ(form.Label5.Caption, "181.25 m ");
  EXPECT_EQ(form.Text1.Text, "17");
  EXPECT_EQ(form.Text2.Text, "-2");
  EXPECT_EQ(form.IndexLabel(1).Caption, "1");
  EXPECT_EQ(form.ImageCodeLabel(1).Caption, "101");
  EXPECT_EQ(form.X0Label(1).Caption, "10.250000 um");
  EXPECT_EQ(form.X1Label(1).Caption, "13.250000 um");
  EXPECT_EQ(form.Y0Label(1).Caption, "-4.000000 um");
  EXPECT_EQ(form.Y1Label(1).Caption, "0.000000 um");
  EXPECT_EQ(form.ScaleLabel(1).Caption, "9800.2 ");
  EXPECT_EQ(form.DistanceLabel(1).Caption, "5.00 m ");
  EXPECT_EQ(form.Text3(1).Text, "crown");
  EXPECT_EQ(form.SunElevationLabel(1).Caption, "41.5 deg");
  EXPECT_EQ(form.SunAzimuthLabel(1).Caption, "150.0 deg");
  EXPECT_EQ(form.RayAzimuthLabel(1).Caption, "400.2 deg");
  EXPECT_EQ(form.DifferenceLabel(1).Caption, "-30.0 deg");
  EXPECT_EQ(form.OffNadirLabel(1).Caption, "5.8 deg");
  EXPECT_EQ(form.IndexLabel(8).Caption, "0");
  EXPECT_EQ(form.DistanceLabel(8).Caption, ".00 m ");
}

TEST(DistanceRecord, LineHasOneGroupPerImageOfTheBlock) {
  MeasuredWidth b;
  b.folder.Write(kFile, "earlier\n");
  Form7_Save_Close_And_Reset(b.w);
  const std::string blanks(30, ' ');
  EXPECT_EQ(b.folder.Read(kFile),
            "earlier\n17,-2,2515000.50,6860000.00,181.25"
            ",0,0,0.000000,0.000000,0.000000,0.000000,.0,.00,.00,.00,.00,.00,.00," +
                blanks +
                ",1,101,10.250000,13.250000,-4.000000,0.000000,9800.2,5.00,41.50,150.00,400.25,"
                "-30.00,5.75,crown                         \n");
}

TEST(DistanceRecord, SavingResetsErasesAndCloses) {
  MeasuredWidth b;
  Plot_Point(b.w.Form1.Picture1(0), 1, 1, {});
  Form7_Save_Close_And_Reset(b.w);
  EXPECT_TRUE(b.screen.messages.empty());
  const XYDistanceEntry& entry = b.w.XYDistanceEntries(1);
  EXPECT_EQ(entry.Index, 0);
  EXPECT_EQ(entry.ImageCode, 0);
  EXPECT_EQ(entry.X0Obj, 0);
  EXPECT_EQ(entry.ObservedDistance, 0);
  EXPECT_EQ(entry.OffNadirAngle, 0);
  EXPECT_EQ(entry.ObsCoding.Trimmed(), "");
  EXPECT_EQ(entry.X, 3);
  EXPECT_EQ(b.w.XYDistanceEntries(0).Z, 181.25);
  EXPECT_EQ(b.w.XYDistanceEntries(0).TreeNumber, 17);
  EXPECT_TRUE(b.Marks(0).empty());
  EXPECT_FALSE(b.w.Form7.Visible);
}

TEST(DistanceRecord, NothingMeasuredWritesZeros) {
  SyntheticBlock b;
  b.Add_Camera(0, 0, 1000);
  b.w.XYDistanceEntries(0).TreeNumber = 1;
  Form7_Save_Close_And_Reset(b.w);
  EXPECT_EQ(b.folder.Read(kFile),
            "1,0,.00,.00,.00,0,0,0.000000,0.000000,0.000000,0.000000,.0,.00,.00,.00,.00,.00,.00," +
                std::string(30, ' ') + "\n");
}

TEST(DistanceRecord, TreeNumberZeroIsAskedFor) {
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    MeasuredWidth b;
    b.w.XYDistanceEntries(0).TreeNumber = 0;
    b.screen.answers = {answer};
    Form7_Save_Close_And_Reset(b.w);
    EXPECT_EQ(b.screen.messages,
              std::vector<std::string>{"Your saving the record for tree number zero, ok?"});
    const bool saved = answer == Answer::Yes;
    EXPECT_EQ(b.folder.Read(kFile).empty(), !saved);
    EXPECT_EQ(b.w.XYDistanceEntries(1).ImageCode, saved ? 0 : 101);
    EXPECT_EQ(b.w.Form7.Visible, !saved);
  }
}

TEST(DistanceRecord, AFileThatCannotBeOpenedFailsBeforeTheQuestion) {
  MeasuredWidth b;
  b.w.XYDistanceEntries(0).TreeNumber = 0;
  std::filesystem::remove_all(b.folder.Path() / "e");
  EXPECT_THROW(Form7_Save_Close_And_Reset(b.w), RunTimeError);
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_EQ(b.w.XYDistanceEntries(1).ImageCode, 101);
  EXPECT_TRUE(b.w.Form7.Visible);
}

TEST(DistanceWindow, ResetAndCloseWritesNothing) {
  MeasuredWidth b;
  Form7_Reset_And_Close(b.w);
  EXPECT_EQ(b.w.XYDistanceEntries(1).ImageCode, 0);
  EXPECT_FALSE(b.w.Form7.Visible);
  EXPECT_FALSE(b.folder.Has(kFile));
}

TEST(DistanceWindow, ReturnKeepsTheRecord) {
  MeasuredWidth b;
  Form7_Return_To_Main(b.w);
  EXPECT_EQ(b.w.XYDistanceEntries(1).ImageCode, 101);
  EXPECT_FALSE(b.w.Form7.Visible);
}

TEST(DistanceWindow, EnterMovesThroughTheBoxes) {
  MeasuredWidth b;
  b.w.Form7.Text1.Text = "88";
  Form7_Text1_Enter(b.w);
  EXPECT_EQ(b.w.XYDistanceEntries(0).TreeNumber, 88);
  EXPECT_EQ(b.w.Form7.ActiveControl, "Text2");
  b.w.Form7.Text2.Text = "-5";
  Form7_Text2_Enter(b.w);
  EXPECT_EQ(b.w.XYDistanceEntries(0).FreeInteger, -5);
  EXPECT_EQ(b.w.Form7.ActiveControl, "Text3(0)");
}

TEST(DistanceWindow, TextThatIsNotAnIntegerEmptiesTheBox) {
  MeasuredWidth b;
  b.w.Form7.Text1.Text = "40000";
  b.w.Form7.Text2.Text = "abc";
  Form7_Text1_Enter(b.w);
  Form7_Text2_Enter(b.w);
  EXPECT_EQ(b.screen.messages,
            std::vector<std::string>(2, "Cannot convert input into integer-value"));
  EXPECT_EQ(b.w.Form7.Text1.Text, "");
  EXPECT_EQ(b.w.Form7.Text2.Text, "");
  EXPECT_EQ(b.w.XYDistanceEntries(0).TreeNumber, 17);
  EXPECT_EQ(b.w.Form7.ActiveControl, "Text1");
}

TEST(DistanceWindow, AnEmptyFreeIntegerBoxTakesAZeroAtTheFirstKey) {
  MeasuredWidth b;
  Form7_Text2_First_Key(b.w);
  EXPECT_EQ(b.w.Form7.Text2.Text, "-2");
  b.w.Form7.Text2.Text.clear();
  Form7_Text2_First_Key(b.w);
  EXPECT_EQ(b.w.Form7.Text2.Text, "0");
}

TEST(DistanceWindow, ACodingKeepsItsFirstThirtyCharacters) {
  MeasuredWidth b;
  b.w.Form7.Text3(8).Text = std::string(30, 'a') + "bc";
  Form7_Text3_Enter(b.w, 8);
  EXPECT_EQ(b.w.XYDistanceEntries(8).ObsCoding.Padded(), std::string(30, 'a'));
}

TEST(DistanceWindow, ACodingIsNeverSplitInsideACharacter) {
  MeasuredWidth b;
  std::string letters = "a";
  for (int i = 1; i < 30; ++i) letters += "\u00e4";
  b.w.Form7.Text3(0).Text = letters + "\u00f6\u00f6";
  Form7_Text3_Enter(b.w, 0);
  EXPECT_EQ(b.w.XYDistanceEntries(0).ObsCoding.Padded(), letters);
}

}  // namespace
}  // namespace sylvomex
