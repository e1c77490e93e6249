// SPDX-License-Identifier: MIT
// A pane that shows a correlation image.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "session/script_screen.h"
#include "state/camera_access.h"
#include "support/one_image_fixture.h"
#include "support/small_site.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {
namespace {

TEST_F(OneImage, ShiftClickInACorrelationPaneIsIgnoredBeforeAnythingElse) {
  w().ImageKinds(0) = 2;
  w().Menu.Measure_Tie_and_CP = true;
  w().Form1.MeasureDistancesCheckBox.Value = 1;
  Click(10, 10, kShift);
  Click(10, 10, kCtrl);
  EXPECT_EQ(transcript(), "");
}

TEST_F(OneImage, ZoomIsNotAllowedForCorrelationImages) {
  w().ImageKinds(0) = 2;
  w().Form1.Text1(1).Text = "0";
  Choose("Zoom2_1");
  EXPECT_EQ(transcript(),
            "message \"Zoom not alowed for correlation images!\" title=\"\" buttons=ok -> ok\n");
}

TEST_F(OneImage, AClickOnACorrelationPeakGivesThePhotographsFilmCoordinates) {
  // Patch of raw columns 100 to 300, raw rows 200 to 400: its origin counts from the bottom, 1001 -
  // 1 - 0 - 200. Patch pixel (30, 40) is raw (130, 240): col 130, row 760.
  w().ImageKinds(0) = 2;
  w().CorrelationRecords(0) = w().ImageBlock(0);
  w().CorrelationRecords(0).SubColOrigin = 100;
  w().CorrelationRecords(0).SubRowOrigin = 800;
  w().CorrelationPaneViews(0) = {0, 0, 0, 0, 1.0, 1.0};
  Click(30, 40, 0);
  EXPECT_EQ(w().Form1.Text1(0).Text, "-0.0037");
  EXPECT_EQ(w().Form1.Text1(1).Text, "0.0026");
}

TEST_F(OneImage, TheSolutionIsMarkedWhereTheCorrelationImageShowsIt) {
  w().ImageKinds(0) = 2;
  w().CorrelationRecords(0) = w().ImageBlock(0);
  w().CorrelationRecords(0).SubColOrigin = 100;
  w().CorrelationRecords(0).SubRowOrigin = 800;
  w().CorrelationPaneViews(0) = {10, 20, 0, 0, 2.0, 2.0};
  w().Solution3D = {12, -7, 3};
  w().options.StepLength = 0.5;
  OperatorEvent north;
  north.kind = OperatorEvent::Kind::Key;
  north.form = "Form1";
  north.key_code = 'N';
  Handle_Event(w(), north);
  const auto [col, row] = Object_To_Pixel(w(), 0, {12, -6.5, 3});
  const std::vector<Mark>& marks = w().Form1.Picture1(0).marks;
  ASSERT_EQ(marks.size(), 1U);
  EXPECT_NEAR(marks[0].x1, (col - 100 - 10) * 2 - 1, 1e-9);
  EXPECT_NEAR(marks[0].y1, (800 - row - 20) * 2 - 1, 1e-9);
}

TEST_F(OneImage, CentringOnTheSolutionDropsTheCorrelationImage) {
  w().ImageKinds(0) = 2;
  Choose("Center_to_xyz_click");
  EXPECT_EQ(w().ImageKinds(0), 1);
}

TEST_F(OneImage, AFailureInAHandlerLeavesNoHourglass) {
  w().Form1.MousePointer = PointerShape::Hourglass;
  w().Form1.Picture1(0).MousePointer = PointerShape::Hourglass;
  w().Form1.Check1(0).Value = 1;
  Choose("Capture");  // there is no second pane
  EXPECT_EQ(w().Form1.MousePointer, PointerShape::Normal);
  EXPECT_EQ(w().Form1.Picture1(0).MousePointer, PointerShape::Normal);
}

}  // namespace
}  // namespace sylvomex
