// SPDX-License-Identifier: MIT
// The pixels of a pane as a QImage.
#pragma once

#include <QImage>

#include "panes/picture_painter.h"

namespace sylvomex {

/// image: must have Format_RGB32.
PixelView Pixels_Of(QImage& image);

/// A bitmap at its own size.
QImage To_Image(const PaneBitmap& bitmap);

/// A bitmap (nullptr for none) in the top left corner of a pane of that size.
QImage To_Image(const PaneBitmap* bitmap, QSize size);

/// Copies a part of an image to the same place of another one of its size and format.
void Copy_Pixels(const QImage& from, QImage& to, const QRect& part);

QRect Rect_Of(const PixelRect& rect);

}  // namespace sylvomex
