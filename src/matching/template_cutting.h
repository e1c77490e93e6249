// SPDX-License-Identifier: MIT
#pragma once

#include "matching/image_template.h"
#include "matching/raw_window.h"
#include "matching/template_record.h"

namespace sylvomex {

/// Pixels from the ellipse's centre to the border of the window that is searched for it.
inline constexpr int kTemplateReach = 50;

struct CutTemplate {
  ImageTemplate pattern;
  bool cols_defined = true;  // false: the ellipse reaches the window's last column, or is empty
  bool rows_defined = true;
};

/// The pixels of an image inside an ellipse, in the ellipse's bounding box; 0 outside the ellipse,
/// the middle byte of colour pixels inside. A border that cannot be determined is the window's
/// edge. The 101 x 101 window lies around the ellipse's centre; only its pixels inside the ellipse
/// are read, so the window may leave the raw file where the ellipse does not.
///
/// RunTimeError(SubscriptOutOfRange) naming image and raw file size when the ellipse's centre, or a
/// part of the ellipse inside the window, leaves the raw file; RunTimeErrors of RawPixelReader;
/// RunTimeError(DivisionByZero) for an ellipse without width.
CutTemplate Cut_Template(const ImageRecord& image, const RawPixels& raw,
                         const TemplateRecord& ellipse);

}  // namespace sylvomex
