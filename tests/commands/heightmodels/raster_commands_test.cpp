// SPDX-License-Identifier: MIT
#include "commands/heightmodels/raster_commands.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "state/camera_access.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

// 3 columns by 2 rows of 10 m cells; column 0 is centred on X 90, row 1 extends from Y -10
// (exclusive) to 0.
constexpr const char* kHeader = "3\n2\n90\n-10\n10\n-99\nc:\\data\\dem.bin\n";

std::string Cells(const std::vector<float>& heights) {
  return {reinterpret_cast<const char*>(heights.data()), heights.size() * sizeof(float)};
}

struct ModelFiles : SyntheticBlock {
  ModelFiles() {
    Add_Camera(0, 0, 1000);
    folder.Write("c/data/dem.hdr", kHeader);
    folder.Write("c/data/dem.bin", Cells({1, 2, 3, 4, 17.5, 6}));
    screen.files = {"c:\\data\\dem.hdr"};
  }
};

TEST(AddHeightModel, LoadsHeaderAndCells) {
  ModelFiles b;
  b.screen.inputs = {"0.00"};
  Add_height_Model(b.w);
  const FileQuestion& question = b.screen.file_questions.at(0);
  EXPECT_EQ(question.title, "Header file for a height model");
  EXPECT_EQ(question.filter, "HDR files (*.hdr)|*.hdr");
  EXPECT_EQ(question.filter_index, 1);
  const RecordingScreen::InputBox& box = b.screen.input_boxes.at(0);
  EXPECT_EQ(box.prompt, "What value to add to each cell Z?");
  EXPECT_EQ(box.title, "Query");
  EXPECT_EQ(box.preset, "0.00");
  EXPECT_TRUE(b.w.RasterDemLoaded);
  EXPECT_EQ(b.w.LastHeightHeaderName, "c:\\data\\dem.hdr");
  EXPECT_EQ(b.w.Form1.Label10.Caption, " DEM read succesfully");
  EXPECT_EQ(b.w.Form1.MousePointer, PointerShape::Normal);
  EXPECT_EQ(b.screen.servicings, 2);
  EXPECT_EQ(Get_Raster_Elevation(b.w, 100, 0), 17.5);
}

TEST(AddHeightModel, PointerIsTheHourglassWhileReading) {
  ModelFiles b;
  b.screen.inputs = {"0"};
  std::vector<PointerShape> seen;
  b.screen.on_service = [&] { seen.push_back(b.w.Form1.MousePointer); };
  Add_height_Model(b.w);
  EXPECT_EQ(seen, (std::vector{PointerShape::Hourglass, PointerShape::Normal}));
}

TEST(AddHeightModel, AnOffsetIsAskedForAndNotApplied) {
  ModelFiles b;
  b.screen.inputs = {"5"};
  Add_height_Model(b.w);
  EXPECT_EQ(Get_Raster_Elevation(b.w, 100, 0), 17.5);
}

TEST(AddHeightModel, ANonNumericOffsetMakesTheLoadFail) {
  for (const std::optional<std::string>& answer :
       {std::optional<std::string>{"abc"}, std::optional<std::string>{}}) {
    ModelFiles b;
    b.screen.inputs = {answer};
    Add_height_Model(b.w);
    EXPECT_EQ(b.screen.messages, std::vector<std::string>{"An error occurred, resuming"});
    EXPECT_EQ(b.w.Form1.Label10.Caption, " DEM read unsuccesfully");
    EXPECT_EQ(b.w.Form1.MousePointer, PointerShape::Normal);
    EXPECT_FALSE(b.w.RasterDemLoaded);
  }
}

TEST(AddHeightModel, AFailedSecondLoadKeepsTheFlag) {
  ModelFiles b;
  b.screen.inputs = {"0"};
  Add_height_Model(b.w);
  b.screen.files = {"c:\\data\\none.hdr"};
  Add_height_Model(b.w);
  EXPECT_TRUE(b.w.RasterDemLoaded);
  EXPECT_EQ(b.w.Form1.Label10.Caption, " DEM read unsuccesfully");
  EXPECT_EQ(Get_Raster_Elevation(b.w, 100, 0), 17.5);
}

TEST(AddHeightModel, ADismissedDialogIsTheSameFailure) {
  ModelFiles b;
  b.screen.files = {std::nullopt};
  Add_height_Model(b.w);
  EXPECT_EQ(b.screen.messages, std::vector<std::string>{"An error occurred, resuming"});
  EXPECT_EQ(b.w.Form1.Label10.Caption, " DEM read unsuccesfully");
}

TEST(AddHeightModel, AShortCellFileLeavesTheLastRowZeroWithoutAMessage) {
  ModelFiles b;
  b.folder.Write("c/data/dem.bin", Cells({1, 2, 3}));
  b.screen.inputs = {"0"};
  Add_height_Model(b.w);
  EXPECT_TRUE(b.w.RasterDemLoaded);
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_EQ(Get_Raster_Elevation(b.w, 100, -10), 2);
  EXPECT_EQ(Get_Raster_Elevation(b.w, 100, 0), 0);
}

constexpr float kLeastFloat = -3.4e38F;

TEST(AddHeightModel, CellsWithoutDataAreCountedAndReported) {
  ModelFiles b;
  b.folder.Write("c/data/dem.bin",
                 Cells({1, -9999, kLeastFloat, 4, std::numeric_limits<float>::quiet_NaN(), 6}));
  b.screen.inputs = {"0"};
  Add_height_Model(b.w);
  EXPECT_EQ(b.screen.messages,
            std::vector<std::string>{"c:\\data\\dem.hdr: 3 of 6 cells hold no data (-9999, "
                                     "-3.4e38 or no number)"});
  EXPECT_EQ(b.w.Form1.Label10.Caption, " DEM read succesfully");
  EXPECT_EQ(Get_Raster_Elevation(b.w, 100, -10), -9999);  // lookups return what the cell holds
  b.screen.messages.clear();
  b.screen.files = {"c:\\data\\dem.hdr"};
  Add_Raster_CHM(b.w);
  EXPECT_EQ(b.screen.messages.size(), 1U);
}

TEST(AddHeightModel, AModelWithDataEverywhereAndOneTooShortHaveNoMessage) {
  ModelFiles b;
  b.folder.Write("c/data/dem.bin", Cells({-99, -9998, 0}));
  b.screen.inputs = {"0"};
  Add_height_Model(b.w);
  EXPECT_TRUE(b.screen.messages.empty());
}

TEST(GetElevation, ACellWithoutDataIsReportedInsteadOfAGroundHeight) {
  for (const float cell : {-9999.0F, kLeastFloat, std::numeric_limits<float>::quiet_NaN()}) {
    ModelFiles b;
    b.folder.Write("c/data/dem.bin", Cells({1, 2, 3, 4, cell, 6}));
    b.screen.inputs = {"0"};
    Add_height_Model(b.w);
    b.w.Solution3D = {100, 0, 200};
    b.w.SolutionValid = true;
    Get_elevation(b.w);
    EXPECT_TRUE(b.w.Form1.Label10.Caption.starts_with(
        "the height model holds no data at X 100.00, Y 0.00: "))
        << b.w.Form1.Label10.Caption;
    EXPECT_TRUE(b.Marks(0).empty());
  }
}

TEST(AddRasterChm, LoadsWithoutAnOffsetQuestion) {
  ModelFiles b;
  std::vector<std::string> seen;
  b.screen.on_service = [&] { seen.push_back(b.w.Form1.Label10.Caption); };
  Add_Raster_CHM(b.w);
  EXPECT_EQ(seen.at(0), "c:\\data\\dem.hdr");
  EXPECT_TRUE(b.screen.input_boxes.empty());
  EXPECT_FALSE(b.w.RasterDemLoaded);
  EXPECT_EQ(b.w.Form1.Label10.Caption, " Raster CHM read succesfully");
  EXPECT_EQ(Get_Raster_Chm_Elevation(b.w, 100, 0), 17.5);
}

TEST(AddRasterChm, FailureNamesTheChm) {
  ModelFiles b;
  b.folder.Write("c/data/dem.hdr", "3\n2\nx\n");
  Add_Raster_CHM(b.w);
  EXPECT_EQ(b.screen.messages, std::vector<std::string>{"An error occurred, resuming"});
  EXPECT_EQ(b.w.Form1.Label10.Caption, " RASTER CHM read unsuccesfully");
  EXPECT_EQ(b.w.Form1.MousePointer, PointerShape::Normal);
}

struct SolutionOverModel : ModelFiles {
  SolutionOverModel() {
    screen.inputs = {"0"};
    Add_height_Model(w);
    w.Solution3D = {100, 0, 18};
    w.SolutionValid = true;
  }
};

TEST(GetElevation, DoesNothingWithoutASolution) {
  SolutionOverModel b;
  b.w.SolutionValid = false;
  Get_elevation(b.w);
  Get_Raster_CHM_Elevation(b.w);
  EXPECT_TRUE(b.Marks(0).empty());
  EXPECT_EQ(b.w.Form1.Label10.Caption, " DEM read succesfully");
}

TEST(GetElevation, ShowsGroundAndDifferenceInBoldTen) {
  SolutionOverModel b;
  Get_elevation(b.w);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "Ground: 17.50 m Difference: .50 m");
  EXPECT_EQ(b.w.Form1.Label10.FontSize, 10);
  EXPECT_TRUE(b.w.Form1.Label10.FontBold);
}

TEST(GetElevation, MarksTopAndGroundAndConnectsThem) {
  SolutionOverModel b;
  Get_elevation(b.w);
  const std::vector<Mark>& marks = b.Marks(0);
  const PanePosition top = b.Pane_Of(0, {100, 0, 18});
  const PanePosition ground = b.Pane_Of(0, {100, 0, 17.5});
  ASSERT_EQ(marks.size(), 25U + 25 + 1 + 5 * 2);
  EXPECT_NEAR(marks[0].x1, top.px - 2, 1e-6);
  EXPECT_NEAR(marks[24].y1, top.py + 2, 1e-6);
  EXPECT_EQ(marks[0].colour, (Colour{100, 255, 0}));
  EXPECT_NEAR(marks[25].x1, ground.px - 2, 1e-6);
  EXPECT_EQ(marks[25].colour, (Colour{255, 0, 0}));
  EXPECT_EQ(marks[50].kind, Mark::Kind::Line);
  EXPECT_NEAR(marks[50].x1, top.px, 1e-6);
  EXPECT_NEAR(marks[50].x2, ground.px, 1e-6);
  EXPECT_EQ(marks[50].colour, (Colour{225, 225, 225}));
}

TEST(GetElevation, WritesTheHeightBesideEachSegment) {
  SolutionOverModel b;
  Get_elevation(b.w);
  const Picture& pane = b.w.Form1.Picture1(0);
  for (int i = 0; i < 5; ++i) {
    const PanePosition from = b.Pane_Of(0, {100, 0, 17.5 + 0.1 * i});
    const PanePosition to = b.Pane_Of(0, {100, 0, 17.6 + 0.1 * i});
    const Mark& segment = pane.marks[static_cast<std::size_t>(51 + 2 * i)];
    const Mark& text = pane.marks[static_cast<std::size_t>(52 + 2 * i)];
    EXPECT_NEAR(segment.x1, from.px, 1e-6);
    EXPECT_NEAR(segment.x2, to.px, 1e-6);
    EXPECT_EQ(segment.colour, (Colour{225, 225, 225}));
    EXPECT_NEAR(text.x1, to.px + 10, 1e-6);
    EXPECT_NEAR(text.y1, to.py - 10, 1e-6);
  }
  ASSERT_EQ(pane.texts.size(), 5U);
  EXPECT_EQ(pane.texts[0].text, ".1");
  EXPECT_EQ(pane.texts[4].text, ".5");
  EXPECT_EQ(pane.texts[4].font.size, 12);
}

TEST(GetElevation, ASolutionBelowTheGroundHasNoScale) {
  SolutionOverModel b;
  b.w.Solution3D.Z = 10;
  Get_elevation(b.w);
  EXPECT_EQ(b.Marks(0).size(), 51U);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "Ground: 17.50 m Difference: -7.50 m");
}

TEST(GetRasterChmElevation, MarksSmallRedBlocksOnly) {
  ModelFiles b;
  Add_Raster_CHM(b.w);
  b.w.Solution3D = {100, 0, 18};
  b.w.SolutionValid = true;
  Get_Raster_CHM_Elevation(b.w);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "Ground: 17.50 m Difference: .50 m");
  const std::vector<Mark>& marks = b.Marks(0);
  ASSERT_EQ(marks.size(), 9U + 9 + 1 + 5 * 2);
  for (std::size_t i = 0; i < 18; ++i) EXPECT_EQ(marks[i].colour, (Colour{255, 0, 0}));
}

}  // namespace
}  // namespace sylvomex
