// SPDX-License-Identifier: MIT
// A pane that shows a correlation image.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "session/script_screen.h"
#include "support/one_image_fixture.h"
#include "support/small_site.h"
#include "workspace/operator_event.h"

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
  // Patch of raw columns 100 to 300, raw rows 200 to 400: its origin counts from the bottom,
  // 1001 - 1 - 0 - 200. Patch pixel (30, 40) is raw (130, 240): col 130, row 760.
  w().ImageKinds(0) = 2;
  w().CorrelationRecords(0) = w().ImageBlock(0);
  w().CorrelationRecords(0).SubColOrigin = 100;
  w().CorrelationRecords(0).SubRowOrigin = 800;
  w().CorrelationPaneViews(0) = {0, 0, 0, 0, 1.0, 1.0};
  Click(30, 40, 0);
  EXPECT_EQ(w().Form1.Text1(0).Text, "-0.0037");
  EXPECT_EQ(w().Form1.Text1(1).Text, "0.0026");
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
