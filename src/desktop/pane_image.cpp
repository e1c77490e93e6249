// SPDX-License-Identifier: MIT
#include "desktop/pane_image.h"

namespace sylvomex {

PixelView Pixels_Of(QImage& image) {
  return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
          image.bytesPerLine() / std::ptrdiff_t{sizeof(std::uint32_t)}};
}

QImage To_Image(const PaneBitmap& bitmap) {
  return To_Image(&bitmap, QSize(bitmap.width, bitmap.height));
}

QImage To_Image(const PaneBitmap* bitmap, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  Paint_Bitmap(Pixels_Of(image), bitmap);
  return image;
}

QRect Rect_Of(const PixelRect& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace sylvomex
