// SPDX-License-Identifier: MIT
#include "mapview/map_view.h"

#include <gtest/gtest.h>

#include "imageblock/expect_failure.h"

namespace sylvomex {
namespace {

/// A pane of 100 x 80 pixels.
MapView View_At(double zoom) {
  MapView view;
  view.MapZoom = zoom;
  view.MapPaneWidth = 100;
  view.MapPaneHeight = 80;
  return view;
}

void Expect_Window(const MapView& view, int first_col, int last_col, int first_row, int last_row) {
  EXPECT_EQ(view.MapFirstCol, first_col);
  EXPECT_EQ(view.MapLastCol, last_col);
  EXPECT_EQ(view.MapFirstRow, first_row);
  EXPECT_EQ(view.MapLastRow, last_row);
  EXPECT_EQ(view.MapViewCol, first_col);
  EXPECT_EQ(view.MapViewRow, first_row);
}

TEST(MapPane, IsAMultipleOfFourWideWhateverTheWindow) {
  // x = W - 10: 90 + 270 mod 4 (2) + 4 = 96, 91 + 273 mod 4 (1) + 4 = 96, 92 + 0 + 4 = 96,
  // 93 + 279 mod 4 (3) + 4 = 100.
  const int widths[] = {96, 96, 96, 100};
  for (int k = 0; k < 4; ++k) {
    MapView view;
    Size_Map_Pane(view, 100 + k, 100);
    EXPECT_EQ(view.MapPaneWidth, widths[k]) << 100 + k;
  }
}

TEST(MapPane, HeightFollowsTheWindowsRestByFour) {
  // H - 10 + H mod 4 + 4.
  MapView view;
  Size_Map_Pane(view, 100, 200);
  EXPECT_EQ(view.MapPaneHeight, 194);
  Size_Map_Pane(view, 100, 203);
  EXPECT_EQ(view.MapPaneHeight, 200);
}

TEST(MapView, StartsAtTheUpperLeftCornerAtHundredPercent) {
  MapView view = View_At(4);
  view.MapViewCol = 77;
  Show_Map_Start(view);
  EXPECT_EQ(view.MapZoom, 1.0);
  Expect_Window(view, 1, 100, 1, 80);
}

TEST(MapView, CentresOnThePixel) {
  MapView view = View_At(1);
  Centre_Map_View(view, 2000, {500, 600});
  // 500 - 50 and 500 + 49; 600 - 40 and 600 + 39.
  Expect_Window(view, 450, 549, 560, 639);
}

TEST(MapView, AtTwoToOneShowsHalfAsManyPixelsRoundedToEven) {
  MapView view = View_At(2);
  Centre_Map_View(view, 2000, {500, 600});
  // 500 - 25, 500 + 24.5 (524.5 to 524); 600 - 20, 600 + 19.5 (619.5 to 620).
  Expect_Window(view, 475, 524, 580, 620);
}

TEST(MapView, IsPushedInsideAtTheLeftAndTop) {
  MapView view = View_At(0.5);
  Centre_Map_View(view, 2000, {20, 30});
  // 99 / 0.5 + 1, 79 / 0.5 + 1.
  Expect_Window(view, 1, 199, 1, 159);
}

TEST(MapView, IsPushedInsideAtTheBottom) {
  MapView view = View_At(1);
  Centre_Map_View(view, 2000, {500, 1990});
  Expect_Window(view, 450, 549, 1920, 1999);
}

TEST(MapView, IsNotPushedInsideAtTheRight) {
  MapView view = View_At(1);
  Centre_Map_View(view, 2000, {3000, 600});
  Expect_Window(view, 2950, 3049, 560, 639);
}

TEST(MapView, APositionBeyond32BitsIsAnOverflow) {
  MapView view = View_At(1e-8);
  Expect_Failure(Failure::Overflow, [&] { Centre_Map_View(view, 2000, {3000, 600}); });
}

TEST(MapCell, IsTheNearestPixelWithTiesToEven) {
  MapView view = View_At(2);
  view.MapViewCol = 475;
  view.MapViewRow = 580;
  // 475 + 10.5 = 485.5 to 486; 580 + 10.25.
  const MapCell cell = Map_Cell_At(view, 21, 20.5);
  EXPECT_EQ(cell.col, 486);
  EXPECT_EQ(cell.row, 590);
}

TEST(MapPosition, CountsNorthwardFromTheLowerEdge) {
  MapHeader map;
  map.MapOriginX = 2515000;
  map.MapOriginY = 6859000;
  map.MapPixelSizeX = 0.5;
  map.MapPixelSizeY = 0.25;
  map.MapHeight = 2000;
  MapView view = View_At(0.5);
  view.MapViewCol = 101;
  view.MapViewRow = 201;
  const MapPosition position = Map_Position_At(map, view, 10, 30);
  EXPECT_EQ(position.col, 121);             // 10 / 0.5 + 101
  EXPECT_EQ(position.row, 261);             // 30 / 0.5 + 201
  EXPECT_EQ(position.X, 2515000 + 60.5);    // 121 columns of half a metre
  EXPECT_EQ(position.Y, 6859000 + 434.75);  // 1739 rows of a quarter
}

}  // namespace
}  // namespace sylvomex
