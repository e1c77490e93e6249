// SPDX-License-Identifier: MIT
#include "desktop/mark_painter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "desktop/qt_text.h"

namespace sylvomex {
namespace {

constexpr int kMaxPenWidth = 1000;
constexpr double kFarOutside = 1e6;  // pixels; nothing beyond it can touch a pane

QColor Qt_Colour(Colour colour) { return QColor(colour.r, colour.g, colour.b); }

bool Near_The_Pane(double px, double py) {
  return std::abs(px) < kFarOutside && std::abs(py) < kFarOutside;
}

int Nearest_Pixel(double position) { return static_cast<int>(std::nearbyint(position)); }

int Pen_Width(const Mark& mark) { return std::clamp<int>(mark.width, 1, kMaxPenWidth); }

QRect Paint_Point(QImage& image, const Mark& mark) {
  if (!Near_The_Pane(mark.x1, mark.y1)) return {};
  const int width = Pen_Width(mark);
  const QRect square(Nearest_Pixel(mark.x1) - width / 2, Nearest_Pixel(mark.y1) - width / 2, width,
                     width);
  const QRect touched = square & image.rect();
  if (touched.isEmpty()) return {};
  const QRgb colour = qRgb(mark.colour.r, mark.colour.g, mark.colour.b);
  for (int y = touched.top(); y <= touched.bottom(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    std::fill(row + touched.left(), row + touched.right() + 1, colour);
  }
  return touched;
}

/// Shrinks the parameter interval [first, last] of a line to where from + t * step lies in
/// [low, high]; false when nothing is left.
bool Clip_Axis(double from, double step, double low, double high, double& first, double& last) {
  if (step == 0) return from >= low && from <= high;
  double enter = (low - from) / step;
  double leave = (high - from) / step;
  if (enter > leave) std::swap(enter, leave);
  first = std::max(first, enter);
  last = std::min(last, leave);
  return first <= last;
}

/// The part of a line that lies in the image or a pen's width beside it (Liang and Barsky 1984).
std::optional<QLine> Clipped_Line(const Mark& mark, QSize size) {
  if (!std::isfinite(mark.x1 + mark.y1 + mark.x2 + mark.y2)) return std::nullopt;
  const double margin = Pen_Width(mark) + 2.0;
  const double dx = mark.x2 - mark.x1, dy = mark.y2 - mark.y1;
  double first = 0, last = 1;
  if (!Clip_Axis(mark.x1, dx, -margin, size.width() + margin, first, last) ||
      !Clip_Axis(mark.y1, dy, -margin, size.height() + margin, first, last)) {
    return std::nullopt;
  }
  return QLine(Nearest_Pixel(mark.x1 + first * dx), Nearest_Pixel(mark.y1 + first * dy),
               Nearest_Pixel(mark.x1 + last * dx), Nearest_Pixel(mark.y1 + last * dy));
}

QRect Paint_Line(QPainter& painter, const Mark& mark, QSize size) {
  const auto line = Clipped_Line(mark, size);
  if (!line) return {};
  const int width = Pen_Width(mark);
  painter.setPen(QPen(Qt_Colour(mark.colour), width, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(*line);
  return QRect(line->p1(), QSize(1, 1))
      .united(QRect(line->p2(), QSize(1, 1)))
      .adjusted(-width, -width, width, width);
}

QRect Paint_Text(QPainter& painter, const Mark& mark, const MarkText& text) {
  if (!Near_The_Pane(mark.x1, mark.y1)) return {};
  painter.setPen(Qt_Colour(mark.colour));
  painter.setFont(Screen_Font(text.font));
  QRect touched;
  const QRect from(Nearest_Pixel(mark.x1), Nearest_Pixel(mark.y1), 1, 1);
  painter.drawText(from, Qt::TextDontClip | Qt::AlignLeft | Qt::AlignTop, Qt_Text(text.text),
                   &touched);
  return touched.adjusted(-2, -2, 2, 2);
}

/// One painter for a run of lines and texts, opened when the first of them comes: points are
/// written straight into the pixels.
class Brush {
 public:
  explicit Brush(QImage& image) : image_(image) {}
  QPainter& operator()() {
    if (!painter_) painter_.emplace(&image_);
    return *painter_;
  }
  void Lay_Down() { painter_.reset(); }

 private:
  QImage& image_;
  std::optional<QPainter> painter_;
};

QRect Paint_Mark(QImage& image, Brush& brush, const Picture& picture, const Mark& mark) {
  if (mark.kind == Mark::Kind::Line) return Paint_Line(brush(), mark, image.size());
  if (mark.kind == Mark::Kind::Text) {
    const auto entry = static_cast<std::size_t>(mark.text);
    return entry < picture.texts.size() ? Paint_Text(brush(), mark, picture.texts[entry]) : QRect();
  }
  brush.Lay_Down();
  return Paint_Point(image, mark);
}

}  // namespace

QFont Screen_Font(const Font& font) {
  constexpr double kPixelsOfAPoint = 96.0 / 72.0;
  QFont screen_font(font.name == "MS Sans Serif" ? QStringLiteral("Liberation Sans")
                                                 : Qt_Text(font.name));
  screen_font.setStyleHint(QFont::SansSerif);
  screen_font.setPixelSize(std::clamp(Nearest_Pixel(font.size * kPixelsOfAPoint), 1, 1000));
  screen_font.setBold(font.bold);
  return screen_font;
}

QImage To_Image(const PaneBitmap& bitmap) {
  QImage image(bitmap.width, bitmap.height, QImage::Format_RGB32);
  const std::uint8_t* from = bitmap.bgr.data();
  for (int y = 0; y < bitmap.height; ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < bitmap.width; ++x, from += 3) row[x] = qRgb(from[2], from[1], from[0]);
  }
  return image;
}

QImage Paint_Bitmap(const Picture& picture, QSize size) {
  if (picture.bitmap && QSize(picture.bitmap->width, picture.bitmap->height) == size) {
    return To_Image(*picture.bitmap);
  }
  QImage image(size, QImage::Format_RGB32);
  image.fill(QColor(240, 240, 240));
  if (picture.bitmap) QPainter(&image).drawImage(0, 0, To_Image(*picture.bitmap));
  return image;
}

QRect Paint_Marks(QImage& image, const Picture& picture, std::size_t first) {
  Brush brush(image);
  QRect touched;
  for (std::size_t k = first; k < picture.marks.size(); ++k) {
    touched |= Paint_Mark(image, brush, picture, picture.marks[k]);
  }
  return touched & image.rect();
}

}  // namespace sylvomex
