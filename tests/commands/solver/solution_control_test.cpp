// SPDX-License-Identifier: MIT
#include "commands/solver/solution_control.h"

#include <gtest/gtest.h>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

constexpr const char* kFailed = "Cannot convert Input into a 3D-solution!";

struct NamedBlock : SyntheticBlock {
  NamedBlock() {
    w.DefaultPanCenter = {11, 12, 200};
    w.NextMeasurementNumber = 5;
  }
};

void Expect_Fallback(NamedBlock& b) {
  EXPECT_EQ(b.screen.messages, std::vector<std::string>{kFailed});
  EXPECT_EQ(b.w.Solution3D.X, 11);
  EXPECT_EQ(b.w.Solution3D.Y, 12);
  EXPECT_EQ(b.w.Solution3D.Z, 200);
  EXPECT_FALSE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Form1.Label4(2).Caption, "200");
  EXPECT_EQ(b.w.Observation.MeasurementNumber, 0);
}

TEST(ResetPointSolution, TakesTheFirstProjectionCentreWithoutAModel) {
  NamedBlock b;
  b.Add_Camera(2515000.5, 6860000.25, 1000);
  b.w.SolutionValid = true;
  Reset_Point_Solution(b.w);
  EXPECT_FALSE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Form1.Label4(0).Caption, "2515000.50");
  EXPECT_EQ(b.w.Form1.Label4(1).Caption, "6860000.25");
  EXPECT_EQ(b.w.Form1.Label4(2).Caption, "-99.00");
  EXPECT_EQ(b.w.Solution3D.Z, -99);
}

TEST(ResetPointSolution, WithoutImagesReadsTheEmptyFirstRecord) {
  NamedBlock b;
  b.w.Solution3D = {1, 2, 3};
  b.w.SolutionValid = true;
  Reset_Point_Solution(b.w);
  EXPECT_EQ(b.w.Solution3D.X, 0);
  EXPECT_EQ(b.w.Solution3D.Y, 0);
  EXPECT_FALSE(b.w.SolutionValid);
}

TEST(Set3DSolution, AsksThreeValues) {
  NamedBlock b;
  b.screen.inputs = {"2515010.5", " 6860020 ", "181.25"};
  Set_3D_solution(b.w);
  ASSERT_EQ(b.screen.input_boxes.size(), 3U);
  EXPECT_EQ(b.screen.input_boxes[0].prompt, "X-value to be assigned");
  EXPECT_EQ(b.screen.input_boxes[0].preset, "2515000.00");
  EXPECT_EQ(b.screen.input_boxes[1].preset, "6860000.00");
  EXPECT_EQ(b.screen.input_boxes[2].prompt, "Z-value to be assigned");
  EXPECT_EQ(b.screen.input_boxes[2].preset, "180.00");
  EXPECT_EQ(b.screen.input_boxes[2].title, "Set 3D solution to a given value");
  EXPECT_TRUE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Observation.MeasurementNumber, 5);
  EXPECT_EQ(b.w.Observation.Z, 181.25);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "3D-value set succesfully");
  EXPECT_EQ(b.w.Form1.Label4(0).Caption, "2515010.5");
  EXPECT_EQ(b.w.Form1.Label4(1).Caption, "6860020");
}

// An operator who inspects the solution whenever a box opens.
struct WatchingScreen : RecordingScreen {
  explicit WatchingScreen(const Workspace* block) : w(block) {}
  const Workspace* w;
  std::vector<double> seen_x;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title,
                                       std::string_view preset) override {
    seen_x.push_back(w->Solution3D.X);
    return RecordingScreen::Input_Box(prompt, title, preset);
  }
};

TEST(Set3DSolution, TextAtTheSecondPromptFallsBackAfterXWasStored) {
  NamedBlock b;
  WatchingScreen watching(&b.w);
  b.w.screen = &watching;
  watching.inputs = {"500", "abc"};
  Set_3D_solution(b.w);
  EXPECT_EQ(watching.seen_x, (std::vector<double>{0, 500}));
  b.screen.messages = watching.messages;
  Expect_Fallback(b);
}

TEST(Set3DSolution, DismissedPromptFallsBack) {
  NamedBlock b;
  b.screen.inputs = {std::nullopt};
  Set_3D_solution(b.w);
  Expect_Fallback(b);
}

TEST(Set3DSolFile, TakesNumberAndPointFromTheFirstLine) {
  NamedBlock b;
  b.folder.Write("c/data/tree.txt", "321,2515010.5,6860020,181.25\r\n1,2,3,4\r\n");
  b.screen.files = {"c:\\data\\tree.txt"};
  Set_3D_Sol_File(b.w);
  EXPECT_EQ(b.screen.file_questions.at(0).title, "File with X (comma) Y (comma) Z ");
  EXPECT_EQ(b.screen.file_questions.at(0).filter, "TXT files (*.txt)|*.txt");
  EXPECT_EQ(b.screen.file_questions.at(0).filter_index, 1);
  EXPECT_EQ(b.w.XYDistanceEntries(0).TreeNumber, 321);
  EXPECT_EQ(b.w.Observation.FreeInteger, 321);
  EXPECT_EQ(b.w.Solution3D.X, 2515010.5);
  EXPECT_EQ(b.w.Observation.Z, 181.25);
  EXPECT_TRUE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Form1.Label4(2).Caption, "181.25");
  // Centring ran last.
  EXPECT_EQ(b.w.CenterTarget.X, 2515010.5);
  EXPECT_TRUE(b.screen.messages.empty());
}

TEST(Set3DSolFile, FourBlankSeparatedValuesAreAccepted) {
  NamedBlock b;
  b.folder.Write("c/data/tree.txt", "7 1.5 2.5 3.5");
  b.screen.files = {"c:\\data\\tree.txt"};
  Set_3D_Sol_File(b.w);
  EXPECT_EQ(b.w.Solution3D.Z, 3.5);
}

TEST(Set3DSolFile, BadFilesFallBack) {
  for (const char* content : {"1,2,3", "1,2,3\n4,5,6,7\n", "", "40000,1,2,3", "1,x,2,3"}) {
    NamedBlock b;
    b.folder.Write("c/data/tree.txt", content);
    b.screen.files = {"c:\\data\\tree.txt"};
    Set_3D_Sol_File(b.w);
    Expect_Fallback(b);
    EXPECT_EQ(b.w.XYDistanceEntries(0).TreeNumber, 0);
  }
}

TEST(Set3DSolFile, MissingFileAndDismissedDialogFallBack) {
  for (const std::optional<std::string>& choice :
       {std::optional<std::string>{"c:\\data\\none.txt"}, std::optional<std::string>{}}) {
    NamedBlock b;
    b.screen.files = {choice};
    Set_3D_Sol_File(b.w);
    Expect_Fallback(b);
  }
}

TEST(Set3DSolutionToStereoSol, CopiesThePointAndTheRecord) {
  NamedBlock b;
  b.w.Stereo.StereoSolution = {1.5, 2, 3};
  Set_3D_solution_To_Stereo_Sol(b.w);
  EXPECT_EQ(b.w.Solution3D.X, 1.5);
  EXPECT_TRUE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Observation.X, 1.5);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "3D-value set succesfully");
  EXPECT_EQ(b.w.Form1.Label4(0).Caption, "1.5");
}

TEST(NewPlotLocation, AddsTheHeightToTheModel) {
  NamedBlock b;
  b.w.RasterDem.NCols = b.w.RasterDem.NRows = 3;
  b.w.RasterDem.CellSize = 100;
  Dimension_Cells(b.w.RasterDem);
  for (int cell = 0; cell < 9; ++cell) b.w.RasterDem.Cells[static_cast<std::size_t>(cell)] = 150;
  b.w.RasterDemLoaded = true;
  b.folder.Write("c/data/plot.txt", "70001,110,90,0,0,0,12.5,x\n");
  b.screen.files = {"c:\\data\\plot.txt"};
  Set_3D_solution_to_a_new_plot_location(b.w);
  EXPECT_EQ(b.w.Plot.PlotNumber, 70001);
  EXPECT_EQ(b.w.Plot.X, 110);
  EXPECT_EQ(b.w.Plot.GroundZ, 150);
  EXPECT_EQ(b.w.Plot.HeightAboveGround, 12.5);
  EXPECT_EQ(b.w.Solution3D.Z, 162.5);
  EXPECT_FALSE(b.w.SolutionValid);
  EXPECT_EQ(b.w.CenterTarget.Z, 162.5);
}

TEST(NewPlotLocation, FailureNamesTheLineAfterEmptyOnesAndTheNativePath) {
  for (const auto& [text, message] :
       {std::pair{"\n7,110,90,0,flat,0,12.5,x\n",
                  "Type mismatch: c:\\data\\plot.txt, line 2, item 5: \"flat\" is not a number"},
        std::pair{"\n \n7,110,90,0,0,0,12.5\n",
                  "Input past end of file: c:\\data\\plot.txt, line 3, item 7: 8 values wanted"}}) {
    NamedBlock b;
    b.folder.Write("c/data/plot.txt", text);
    b.screen.files = {"c:\\data\\plot.txt"};
    try {
      Set_3D_solution_to_a_new_plot_location(b.w);
      FAIL() << "the file was taken";
    } catch (const RunTimeError& error) {
      EXPECT_STREQ(error.what(), message);
      EXPECT_EQ(error.Native_Path(), b.folder.Path() / "c/data/plot.txt");
    }
  }
}

TEST(NewPlotLocation, SevenValuesEndTheCommandWithoutAChange) {
  NamedBlock b;
  b.folder.Write("c/data/plot.txt", "7,110,90,0,0,0,12.5\n");
  b.screen.files = {"c:\\data\\plot.txt"};
  EXPECT_THROW(Set_3D_solution_to_a_new_plot_location(b.w), RunTimeError);
  EXPECT_EQ(b.w.Plot.PlotNumber, 0);
  EXPECT_EQ(b.w.Solution3D.X, 0);
}

}  // namespace
}  // namespace sylvomex
