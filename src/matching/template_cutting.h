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
/// The window of 101 x 101 pixels lies around the ellipse's centre; only its pixels inside the
/// ellipse are read, so that it may leave the raw file where the ellipse does not.
///
/// RunTimeError(SubscriptOutOfRange) naming image and raw file size when the ellipse, as far as the
/// window shows it, or its centre leaves the raw file; as RawPixelReader; and
/// RunTimeError(DivisionByZero) for an ellipse without width.
CutTemplate Cut_Template(const ImageRecord& image, const RawPixels& raw,
                         const TemplateRecord& ellipse);

}  // namespace sylvomex
