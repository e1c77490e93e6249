// SPDX-License-Identifier: MIT
#include "desktop/pane_image.h"

#include <cstring>

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

void Copy_Pixels(const QImage& from, QImage& to, const QRect& part) {
  const std::size_t bytes = static_cast<std::size_t>(part.width()) * sizeof(std::uint32_t);
  const qsizetype left = part.left() * qsizetype{sizeof(std::uint32_t)};
  for (int y = part.top(); y <= part.bottom(); ++y) {
    std::memcpy(to.scanLine(y) + left, from.constScanLine(y) + left, bytes);
  }
}

QRect Rect_Of(const PixelRect& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace sylvomex
