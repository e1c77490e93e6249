// SPDX-License-Identifier: MIT
#include "imageblock/pane_view.h"

#include "platform/checked_arithmetic.h"

namespace sylvomex {
namespace {

double Left_Col(const ImageRecord& image, const PaneView& view) {
  return view.ViewCol + image.SubColOrigin;
}

double Top_Row(const ImageRecord& image, const PaneView& view) {
  return view.ViewRow + image.SubRowOrigin;
}

double Pane_To_Col(const ImageRecord& image, const PaneView& view, double px) {
  return Left_Col(image, view) + px * Raw_Pixels_Per_Pane_Pixel(view.ZoomX);
}

double Col_To_Pane(const ImageRecord& image, const PaneView& view, double col) {
  return (col - Left_Col(image, view)) * view.ZoomX;
}

}  // namespace

double Raw_Pixels_Per_Pane_Pixel(double zoom) {
  return Quotient(1, zoom, "a pane without an image has no zoom");
}

PixelPosition Pane_To_Full_Image(const ImageRecord& image, const PaneView& view, double px,
                                 double py) {
  const double top_row = (image.FullHeight - 1) - Top_Row(image, view);
  return {Pane_To_Col(image, view, px), top_row - py * Raw_Pixels_Per_Pane_Pixel(view.ZoomY)};
}

double Pane_To_Top_Down_Row(const ImageRecord& image, const PaneView& view, double py) {
  return Top_Row(image, view) + py * Raw_Pixels_Per_Pane_Pixel(view.ZoomY);
}

PanePosition Full_Image_To_Pane(const ImageRecord& image, const PaneView& view, double col,
                                double row) {
  const double top_down_row = (image.FullHeight - 1) - row;
  return {Col_To_Pane(image, view, col), (top_down_row - Top_Row(image, view)) * view.ZoomY};
}

PixelPosition Correlation_Pane_To_Full_Image(const ImageRecord& correlation, const PaneView& view,
                                             double px, double py) {
  const double top_row = correlation.SubRowOrigin - view.ViewRow;
  return {Pane_To_Col(correlation, view, px), top_row - py * Raw_Pixels_Per_Pane_Pixel(view.ZoomY)};
}

PanePosition Full_Image_To_Correlation_Pane(const ImageRecord& correlation, const PaneView& view,
                                            double col, double row) {
  const double top_row = correlation.SubRowOrigin - view.ViewRow;
  return {Col_To_Pane(correlation, view, col), (top_row - row) * view.ZoomY};
}

}  // namespace sylvomex
