// SPDX-License-Identifier: MIT
#include "demo/guide/guide_picture.h"

#include <algorithm>

#include "demo/guide/few_colours.h"

namespace sylvomex::demo {
namespace {

QImage In_Palette(const QImage& picture) {
  std::vector<std::uint32_t> pixels;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) pixels.push_back(picture.pixel(x, y) & 0xFFFFFF);
  }
  const FewColours few = In_Few_Colours(pixels);
  QImage small(picture.size(), QImage::Format_Indexed8);
  QList<QRgb> table;
  for (const std::uint32_t colour : few.palette) table.append(0xFF000000U | colour);
  small.setColorTable(table);
  auto next = few.pixels.begin();
  for (int y = 0; y < picture.height(); ++y, next += picture.width()) {
    std::copy_n(next, picture.width(), small.scanLine(y));
  }
  return small;
}

}  // namespace

bool Write_Guide_Picture(const QImage& picture, const QRect& part, int width, const QString& file) {
  QImage shown = part.isEmpty() ? picture : picture.copy(part & picture.rect());
  if (width > 0 && width < shown.width()) {
    shown = shown.scaledToWidth(width, Qt::SmoothTransformation);
  }
  if (shown.isNull()) return false;
  return In_Palette(shown.convertToFormat(QImage::Format_RGB32)).save(file, "PNG", 0);
}

}  // namespace sylvomex::demo
