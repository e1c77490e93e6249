// SPDX-License-Identifier: MIT
#include "state/picture.h"

#include <cmath>
#include <utility>

#include "platform/rounding.h"

namespace sylvomex {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr double kLineSpacing = 1.2;  // of the font size

void Move_Pen(Picture& picture, double px, double py) {
  picture.CurrentX = px;
  picture.CurrentY = py;
}

}  // namespace

int Text_Height(const Font& font) {
  return static_cast<int>(Round_Half_Even(font.size * kPixelsPerPoint * kLineSpacing));
}

void Load_Picture(Picture& picture, std::shared_ptr<const PaneBitmap> bitmap) {
  picture.bitmap = std::move(bitmap);
  ++picture.bitmap_version;
  Erase_Marks(picture);
}

void Erase_Marks(Picture& picture) {
  // Their memory goes back as well: an overlay of a tile has millions of points.
  picture.marks = std::vector<Mark>();
  picture.texts = std::vector<MarkText>();
  ++picture.erase_version;
  Show_Floating(picture, {});
}

void Show_Floating(Picture& picture, std::vector<Mark> floating) {
  picture.floating = std::move(floating);
  ++picture.floating_version;
}

void Plot_Point(Picture& picture, double px, double py, Colour colour) {
  Mark mark;
  mark.kind = Mark::Kind::Point;
  mark.colour = colour;
  mark.width = static_cast<std::int16_t>(picture.DrawWidth);
  mark.x1 = px;
  mark.y1 = py;
  picture.marks.push_back(mark);
  Move_Pen(picture, px, py);
}

void Draw_Line(Picture& picture, double px1, double py1, double px2, double py2, Colour colour) {
  Mark mark;
  mark.kind = Mark::Kind::Line;
  mark.colour = colour;
  mark.width = static_cast<std::int16_t>(picture.DrawWidth);
  mark.x1 = px1;
  mark.y1 = py1;
  mark.x2 = px2;
  mark.y2 = py2;
  picture.marks.push_back(mark);
  Move_Pen(picture, px2, py2);
}

void Print_Text(Picture& picture, std::string_view text) {
  Mark mark;
  mark.kind = Mark::Kind::Text;
  mark.colour = picture.ForeColor;
  mark.width = static_cast<std::int16_t>(picture.DrawWidth);
  mark.x1 = picture.CurrentX;
  mark.y1 = picture.CurrentY;
  mark.text = static_cast<std::int32_t>(picture.texts.size());
  picture.texts.push_back({std::string(text), picture.font});
  picture.marks.push_back(mark);
  picture.CurrentY += Text_Height(picture.font);
}

void Plot_Block(Picture& picture, double px, double py, int reach, Colour colour) {
  for (int dy = -reach; dy <= reach; ++dy) {
    for (int dx = -reach; dx <= reach; ++dx) Plot_Point(picture, px + dx, py + dy, colour);
  }
}

}  // namespace sylvomex
