// SPDX-License-Identifier: MIT
// Draws a pane's bitmap and marks into an image. One pane pixel is one image pixel.
#pragma once

#include <QFont>
#include <QImage>
#include <QRect>
#include <cstddef>

#include "state/picture.h"

namespace sylvomex {

/// The font of a text on the screen; its size does not depend on the screen's resolution.
QFont Screen_Font(const Font& font);

/// The bitmap as an image.
QImage To_Image(const PaneBitmap& bitmap);

/// An image of the pane's size with the bitmap at its top left corner, grey elsewhere.
QImage Paint_Bitmap(const Picture& picture, QSize size);

/// Draws the marks from `first` on. A point of width W is a square of W by W pixels around the
/// nearest pixel. Returns the pixels touched.
QRect Paint_Marks(QImage& image, const Picture& picture, std::size_t first);

}  // namespace sylvomex
