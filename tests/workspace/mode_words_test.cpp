// SPDX-License-Identifier: MIT
#include "workspace/mode_words.h"

#include "state/workspace.h"
#include "support/one_image_fixture.h"

namespace sylvomex {
namespace {

using ModeWords = OneImage;

TEST_F(ModeWords, PlainMeasuringHasNone) { EXPECT_EQ(Mode_Words(w()), ""); }

TEST_F(ModeWords, APolygonModeSaysThatItTakesTheClicks) {
  Choose("Draw_Polygon");
  EXPECT_EQ(Mode_Words(w()), "Drawing a polygon: right click begins it, other clicks do nothing");
  w().PolygonActive = true;
  EXPECT_EQ(Mode_Words(w()), "Drawing a polygon: click adds a corner, Shift+right click closes it");
}

TEST_F(ModeWords, TiePointsTakeThePlainClickBeforeAPolygon) {
  Choose("Measure_Tie_and_CP");
  Choose("Draw_Polygon");
  EXPECT_EQ(Mode_Words(w()).find("Tie points: click measures one; Drawing a polygon"), 0u);
}

TEST_F(ModeWords, CrownWidthsSayWhichEndIsNext) {
  w().Form1.MeasureDistancesCheckBox.Value = 1;
  EXPECT_EQ(Mode_Words(w()), "Crown width: click the first end");
  Click(10, 10, 0);
  EXPECT_EQ(Mode_Words(w()), "Crown width: click the second end");
}

TEST_F(ModeWords, ModesThatFollowAMeasuringClickAreJoined) {
  Choose("Measure_Surface");
  Choose("Measure_Triplet");
  EXPECT_EQ(Mode_Words(w()),
            "Surface points (pair): a click in image 0 matches; Surface points (triplet): a click "
            "in image 1 matches");
}

}  // namespace
}  // namespace sylvomex
