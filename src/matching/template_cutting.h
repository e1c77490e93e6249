// SPDX-License-Identifier: MIT
#pragma once

#include "matching/image_template.h"
#include "matching/raw_window.h"
#include "matching/template_record.h"

namespace sylvomex {

/// Pixels from the ellipse's centre to the border of the window in which it is looked for.
inline constexpr int kTemplateReach = 50;

struct CutTemplate {
  ImageTemplate pattern;
  bool cols_defined = true;  // false: the ellipse reaches the window's last column, or is empty
  bool rows_defined = true;
};

/// The pixels of an image inside an ellipse, in the ellipse's bounding box; 0 outside the ellipse,
/// the middle byte of colour pixels inside. A border that cannot be defined is the window's edge.
/// The window of 101 x 101 pixels lies around the ellipse's centre; RunTimeError as
/// Read_Raw_Window, and RunTimeError(DivisionByZero) for an ellipse without width.
CutTemplate Cut_Template(const ImageRecord& image, const RawPixels& raw,
                         const TemplateRecord& ellipse);

}  // namespace sylvomex
