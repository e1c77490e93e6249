// SPDX-License-Identifier: MIT
// A picture pane: the loaded bitmap and the marks drawn over it since.
//
// Positions are pane pixels, px to the right, py downward, stored as given: nothing is rounded or
// clipped here.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "imageblock/pane_bitmap.h"
#include "state/control.h"

namespace sylvomex {

struct Font {
  std::string name = "MS Sans Serif";
  double size = 8;  // points; 1/72 inch at 96 pixels per inch
  bool bold = false;

  bool operator==(const Font&) const = default;
};

/// Height of a line of text in pixels.
int Text_Height(const Font& font);

/// How a pen joins the pixels under it, bit by bit in each channel; numbered as the pen modes of
/// raster displays are.
enum class PenMode : std::uint8_t {
  NotMaskPen = 8,  // not (pen and pixel)
  MaskPen = 9,     // pen and pixel
  CopyPen = 13,    // the pen
};

struct Mark {
  enum class Kind : std::uint8_t { Point, Line, Text };
  Kind kind = Kind::Point;
  Colour colour;
  PenMode mode = PenMode::CopyPen;  // of lines
  std::int16_t width = 1;           // pen width, pixels
  std::int32_t text = -1;           // Kind::Text: entry of Picture::texts
  double x1 = 0, y1 = 0;
  double x2 = 0, y2 = 0;  // Kind::Line: the second end
};

struct MarkText {
  std::string text;
  Font font;
};

struct Picture : Control {
  std::shared_ptr<const PaneBitmap> bitmap;
  std::vector<Mark> marks;  // in drawing order
  std::vector<MarkText> texts;
  std::vector<Mark> floating;          // points and lines above the marks, replaced as a whole
  std::uint64_t bitmap_version = 0;    // incremented by every load
  std::uint64_t erase_version = 0;     // incremented whenever the marks are removed
  std::uint64_t floating_version = 0;  // incremented whenever the floating marks change

  // Current pen.
  int DrawWidth = 1;
  Colour ForeColor;
  Font font;
  double CurrentX = 0;
  double CurrentY = 0;
  PointerShape MousePointer = PointerShape::Normal;
  std::string PointerFile = "c:\\data\\cross04.CUR";  // for PointerShape::Custom; a drive name
};

/// Sets the picture's bitmap (null for none) and removes the marks.
void Load_Picture(Picture& picture, std::shared_ptr<const PaneBitmap> bitmap);

/// Removes the marks, the floating ones too; the bitmap stays.
void Erase_Marks(Picture& picture);

/// Replaces the floating points and lines; the other marks stay.
void Show_Floating(Picture& picture, std::vector<Mark> floating);

/// Drawing with the current pen width; each function leaves the pen at the end of what it drew.
void Plot_Point(Picture& picture, double px, double py, Colour colour);
void Draw_Line(Picture& picture, double px1, double py1, double px2, double py2, Colour colour);

/// Text with its top left corner at the pen position, in ForeColor and font; the pen moves to
/// the next line.
void Print_Text(Picture& picture, std::string_view text);

/// Plots (2 reach + 1) by (2 reach + 1) points around a position, row by row from the top left.
void Plot_Block(Picture& picture, double px, double py, int reach, Colour colour);

}  // namespace sylvomex
