// SPDX-License-Identifier: MIT
// The view of a pane into its raw file, and the formulas between pane and full image.
//
// Pane px to the right and py downward, in pane pixels, 0, 0 the top left corner. Full-image
// col to the right, row counted from the bottom.
#pragma once

#include <cstdint>

#include "imageblock/image_record.h"
#include "imageblock/pixel_position.h"

namespace sylvomex {

struct PaneView {
  std::int16_t ViewCol = 0;    // raw-file column of the pane's left edge
  std::int16_t ViewRow = 0;    // raw-file row of the pane's top edge
  std::int16_t ViewWidth = 0;  // pane size at the last render
  std::int16_t ViewHeight = 0;
  double ZoomX = 0;  // pane pixels per raw pixel; 0 until the pane holds an image
  double ZoomY = 0;
};

struct PanePosition {
  double px = 0;
  double py = 0;
};

/// Raw pixels per pane pixel, 1 / zoom. RunTimeError(DivisionByZero) for the zoom 0 of a pane
/// without an image, here and in every conversion from pane to full image.
double Raw_Pixels_Per_Pane_Pixel(double zoom);

/// Full-image position of a pane position.
PixelPosition Pane_To_Full_Image(const ImageRecord& image, const PaneView& view, double px,
                                 double py);

/// Full-image row of a pane position, counted from the top.
double Pane_To_Top_Down_Row(const ImageRecord& image, const PaneView& view, double py);

PanePosition Full_Image_To_Pane(const ImageRecord& image, const PaneView& view, double col,
                                double row);

/// The same for a pane that shows a correlation image: the row origin of its record is
/// counted from the bottom of the full image.
PixelPosition Correlation_Pane_To_Full_Image(const ImageRecord& correlation, const PaneView& view,
                                             double px, double py);
PanePosition Full_Image_To_Correlation_Pane(const ImageRecord& correlation, const PaneView& view,
                                            double col, double row);

}  // namespace sylvomex
