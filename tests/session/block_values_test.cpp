// SPDX-License-Identifier: MIT
#include "session/block_values.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/run_time_error.h"
#include "session/script_screen.h"
#include "support/temporary_folder.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {
namespace {

struct BlockValuesTest : testing::Test {
  TemporaryFolder folder;
  std::ostringstream out;
  ScriptScreen screen{out, out};
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(folder.Drives(), screen);
  Workspace& w = *block;

  std::string Value(std::string_view name) { return Block_Value(w, name); }
};

TEST_F(BlockValuesTest, ControlsGiveWhatTheyShow) {
  w.Form1.Label10.Caption = "Program status ";
  w.Form1.Text1(3).Text = "-0.0123";
  w.Form1.Check1(8).Value = 1;
  EXPECT_EQ(Value("Label10"), "Program status ");
  EXPECT_EQ(Value("Text1(3)"), "-0.0123");
  EXPECT_EQ(Value("Check1(8)"), "1");
  EXPECT_EQ(Value("Check1(0)"), "0");
  EXPECT_EQ(Value("Form1.Text1(3)"), "-0.0123");
}

TEST_F(BlockValuesTest, PlotCentreHasFiveValuesBeforeAPlotIsRead) {
  EXPECT_EQ(Value("PlotCenter"), " 0 0 0 0");
  w.Matching.PlotCenter.PlotId = "T1";
  EXPECT_EQ(Value("PlotCenter"), "T1 0 0 0 0");
}

TEST_F(BlockValuesTest, ControlsOfOtherWindowsCarryTheirWindow) {
  w.Form3.Text2.Text = "17";
  w.Form2.Check3.Value = 1;
  EXPECT_EQ(Value("Form3.Text2"), "17");
  EXPECT_EQ(Value("Form2.Check3"), "1");
  EXPECT_EQ(Value("Form2.Apply_Options_Changes"), "Apply changes");
}

TEST_F(BlockValuesTest, PropertiesOfControls) {
  Label& label = w.Form1.Label10;
  label.ForeColor = {255, 0, 7};
  label.FontSize = 8.25;
  label.FontBold = true;
  label.Caption = "x";
  EXPECT_EQ(Value("Label10.ForeColor"), "255 0 7");
  EXPECT_EQ(Value("Label10.FontSize"), "8.25");
  EXPECT_EQ(Value("Label10.FontBold"), "1");
  EXPECT_EQ(Value("Label10.Caption"), "x");
  w.Form1.Check1(0).Caption = "Use: 17";
  EXPECT_EQ(Value("Check1(0).Caption"), "Use: 17");
  EXPECT_EQ(Value("Check1(0).Value"), "0");
}

TEST_F(BlockValuesTest, PlacesAreNumbersAndTrueIsMinusOne) {
  Picture& picture = w.Form1.Picture1(1);
  picture.Left = 646.5;
  picture.Top = 96;
  picture.Width = 644;
  picture.Height = 640;
  picture.Visible = true;
  picture.Enabled = false;
  EXPECT_EQ(Value("Picture1(1).Left"), "646.5");
  EXPECT_EQ(Value("Picture1(1).Top"), "96");
  EXPECT_EQ(Value("Picture1(1).Width"), "644");
  EXPECT_EQ(Value("Picture1(1).Height"), "640");
  EXPECT_EQ(Value("Picture1(1).Visible"), "-1");
  EXPECT_EQ(Value("Picture1(1).Enabled"), "0");
}

TEST_F(BlockValuesTest, WindowsGiveWhetherTheyAreShown) {
  w.Form3.Visible = true;
  EXPECT_EQ(Value("Form3.Visible"), "-1");
  EXPECT_EQ(Value("Form7.Visible"), "0");
}

TEST_F(BlockValuesTest, StateHasSeventeenDigits) {
  w.Solution3D = {2515000.1, 6856000, -0.1};
  w.SolutionValid = true;
  w.CurrentImage = -1;
  EXPECT_EQ(Value("Solution3D"), "2515000.1000000001 6856000 -0.10000000000000001");
  EXPECT_EQ(Value("SolutionValid"), "-1");
  EXPECT_EQ(Value("CurrentImage"), "-1");
  EXPECT_EQ(Value("NextMeasurementNumber"), "1");
}

TEST_F(BlockValuesTest, OptionsAreFoundByName) {
  EXPECT_EQ(Value("IterationStopDX"), "0.029999999999999999");
  EXPECT_EQ(Value("RmseBeepOneFrequency"), "1000");
  EXPECT_EQ(Value("IncludeTreeNumbers"), "0");
  EXPECT_EQ(Value("AutoEpipolar"), "-1");
  w.ObservationFileName = "c:\\data\\points.txt  ";
  EXPECT_EQ(Value("ObservationFileName"), "c:\\data\\points.txt");
}

TEST_F(BlockValuesTest, ViewsAndPlotsAreLists) {
  w.PaneViews(2) = {3, 4, 640, 640, 0.5, 0.25};
  w.Plot = {12, 1.5, 2.5, 3.5, 4.5};
  w.ImageKinds(0) = 2;
  EXPECT_EQ(Value("PaneViews(2)"), "3 4 640 640 0.5 0.25");
  EXPECT_EQ(Value("PlotLocation"), "12 1.5 2.5 3.5 4.5");
  EXPECT_EQ(Value("ImageKinds(0)"), "2");
}

TEST_F(BlockValuesTest, FieldsOfRecords) {
  ImageRecord& image = w.ImageBlock(1);
  image.ImageId = 4711;
  image.ColorFlag = 1;
  image.RawFileName = std::string_view("c:\\data\\a.raw");
  image.PrincipalDistance = 0.1;
  EXPECT_EQ(Value("ImageBlock(1).ImageId"), "4711");
  EXPECT_EQ(Value("ImageBlock(1).ColorFlag"), "1");
  EXPECT_EQ(Value("ImageBlock(1).RawFileName"), "c:\\data\\a.raw");
  EXPECT_EQ(Value("ImageBlock(1).PrincipalDistance"), "0.10000000000000001");
  w.RasterDem.CellSize = 2.5;
  EXPECT_EQ(Value("RasterDem.CellSize"), "2.5");
}

TEST_F(BlockValuesTest, ArrayFieldPrintsAllItsValues) {
  w.Observation.Cols(1) = 0.1F;
  w.Observation.Cols(8) = 7;
  EXPECT_EQ(Value("ObservationRecord.Cols"), "0 0.10000000149011612 0 0 0 0 0 0 7");
  w.Observation.ImageSlots(0) = 3;
  EXPECT_EQ(Value("ObservationRecord.ImageSlots"), "3 0 0 0 0 0 0 0 0");
}

TEST_F(BlockValuesTest, EmptyValueIsEmpty) {
  EXPECT_EQ(Value("ObservationRecord.FreeText"), "");
  EXPECT_EQ(Value("Text1(0)"), "");
}

TEST_F(BlockValuesTest, MenuItemsAreFoundByName) {
  EXPECT_EQ(Value("Draw_Polygon"), "0");
  w.Menu.Draw_Polygon = true;
  EXPECT_EQ(Value("Draw_Polygon"), "1");
  EXPECT_EQ(Value("Draw_Polygon.Checked"), "1");
  EXPECT_EQ(Value("Open_a_set.Enabled"), "0");
  EXPECT_EQ(Value("Exit.Enabled"), "-1");
  EXPECT_EQ(Value("Exit.Caption"), "Exit Program");
  EXPECT_EQ(Value("Form2.Apply.Caption"), "Apply Changes and Close");
}

TEST_F(BlockValuesTest, NamesThatDoNotExistAreUnknown) {
  for (const char* name : {"",
                           "Nothing",
                           "Label10(0)",
                           "Text1",
                           "Text1(18)",
                           "Picture1(0)",
                           "Label10.Weight",
                           "Form9.Text1",
                           "Form3",
                           "Form3.Weight",
                           "ImageBlock(0)",
                           "ImageBlock.Omega",
                           "ImageBlock(0).Weight",
                           "ImageKinds",
                           "Solution3D(1)",
                           "Exit",
                           "Exit.Weight",
                           "Text1(x)",
                           "Text1(0",
                           "a b",
                           "Label10.",
                           ".Left",
                           "Label10.Caption.Left"}) {
    EXPECT_THROW(Value(name), UnknownName) << name;
  }
}

TEST_F(BlockValuesTest, IndexOutsideATableIsASubscriptError) {
  for (const char* name : {"ImageBlock(701).Omega", "ImageKinds(-1)", "PaneViews(9)",
                           "CorrelationRecords(9).Omega", "XYDistanceEntries(9).X"}) {
    EXPECT_THROW(Value(name), RunTimeError) << name;
  }
}

}  // namespace
}  // namespace sylvomex
