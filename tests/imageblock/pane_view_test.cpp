// SPDX-License-Identifier: MIT
#include "imageblock/pane_view.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

/// A raw file whose first pixel is column 1000 and top-down row 2000 of a full image with
/// 11500 rows, seen from raw column 40 and raw row 50.
ImageRecord Image() {
  ImageRecord image;
  image.SubColOrigin = 1000;
  image.SubRowOrigin = 2000;
  image.FullWidth = 7500;
  image.FullHeight = 11500;
  return image;
}

PaneView View(double zoom_x, double zoom_y) {
  PaneView view;
  view.ViewCol = 40;
  view.ViewRow = 50;
  view.ZoomX = zoom_x;
  view.ZoomY = zoom_y;
  return view;
}

TEST(PaneView, TopLeftCornerIsTheViewsOrigin) {
  const PixelPosition corner = Pane_To_Full_Image(Image(), View(2, 2), 0, 0);
  EXPECT_EQ(corner.col, 1040);
  EXPECT_EQ(corner.row, 9449);  // 11499 - 2050
  EXPECT_EQ(Pane_To_Top_Down_Row(Image(), View(2, 2), 0), 2050);
}

TEST(PaneView, PositionsGrowByOneOverZoomToTheRightAndDownward) {
  const PixelPosition at = Pane_To_Full_Image(Image(), View(4, 2), 10, 30);
  EXPECT_EQ(at.col, 1042.5);
  EXPECT_EQ(at.row, 9434);  // 9449 - 15
  EXPECT_EQ(Pane_To_Top_Down_Row(Image(), View(4, 2), 30), 2065);
}

TEST(PaneView, ZoomedOutPositionsGrowByTheStep) {
  const PixelPosition at = Pane_To_Full_Image(Image(), View(0.25, 0.5), 3, 7);
  EXPECT_EQ(at.col, 1052);
  EXPECT_EQ(at.row, 9435);
}

TEST(PaneView, PixelPositionMapsToItsPanePixel) {
  const PanePosition at = Full_Image_To_Pane(Image(), View(4, 2), 1042.5, 9434);
  EXPECT_EQ(at.px, 10);
  EXPECT_EQ(at.py, 30);
}

TEST(PaneView, TopDownRowAndFullImageRowAddUpToTheLastRow) {
  const double row = Pane_To_Full_Image(Image(), View(3, 3), 0, 100).row;
  EXPECT_NEAR(row + Pane_To_Top_Down_Row(Image(), View(3, 3), 100), 11499, 1e-9);
}

TEST(PaneView, RoundTripComesBackForEveryMenuZoom) {
  for (const double zoom : {1.0, 0.5, 1.0 / 3, 0.25, 1.0 / 6, 0.1, 2.0, 3.0, 4.0}) {
    const PaneView view = View(zoom, zoom);
    const PixelPosition full = Pane_To_Full_Image(Image(), view, 123.5, 456.25);
    const PanePosition back = Full_Image_To_Pane(Image(), view, full.col, full.row);
    EXPECT_NEAR(back.px, 123.5, 1e-9) << zoom;
    EXPECT_NEAR(back.py, 456.25, 1e-9) << zoom;
  }
}

TEST(PaneView, DividesByMultiplyingWithTheReciprocal) {
  // 3 * (1 / 49) and 3 / 49 differ in the last place: 49 * (1 / 49) is below 1.
  ImageRecord image;
  PaneView view;
  view.ZoomX = 49;
  view.ZoomY = 49;
  EXPECT_EQ(Pane_To_Full_Image(image, view, 49, 0).col, 49 * (1.0 / 49));
  EXPECT_LT(Pane_To_Full_Image(image, view, 49, 0).col, 1);
  EXPECT_LT(Pane_To_Top_Down_Row(image, view, 49), 1);
}

TEST(PaneView, SmallestRecordValuesDoNotOverflow) {
  ImageRecord image;
  image.FullHeight = -32768;
  PaneView view = View(1, 1);
  view.ViewRow = 32767;
  EXPECT_EQ(Pane_To_Full_Image(image, view, 0, 0).row, -65536);
}

TEST(PaneView, CorrelationPaneCountsItsRowOriginFromTheBottom) {
  ImageRecord correlation;
  correlation.SubColOrigin = 3150;
  correlation.SubRowOrigin = 6350;
  const PixelPosition at = Correlation_Pane_To_Full_Image(correlation, View(1, 1), 600, 600);
  EXPECT_EQ(at.col, 3790);  // 3150 + 40 + 600
  EXPECT_EQ(at.row, 5700);  // 6350 - 50 - 600
}

TEST(PaneView, CorrelationMarksGoBackToTheirPanePixel) {
  ImageRecord correlation;
  correlation.SubColOrigin = 3150;
  correlation.SubRowOrigin = 6350;
  const PanePosition at = Full_Image_To_Correlation_Pane(correlation, View(2, 4), 3200, 6290);
  EXPECT_EQ(at.px, 20);  // (3200 - 3190) x 2
  EXPECT_EQ(at.py, 40);  // (6300 - 6290) x 4
}

}  // namespace
}  // namespace sylvomex
