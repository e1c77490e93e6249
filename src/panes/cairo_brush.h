// SPDX-License-Identifier: MIT
// Thick lines and texts, drawn with cairo into a pane's pixels.
#pragma once

#include <cairo.h>

#include <memory>

#include "panes/picture_painter.h"

namespace sylvomex {

/// Set up by the first mark that it paints. The pixels may be written directly between two marks.
class CairoBrush {
 public:
  explicit CairoBrush(const PixelView& pixels) : pixels_(pixels) {}

  /// All return the pixels that may have changed. Join_Line: with the pen mode of the mark, each
  /// pixel once.
  PixelRect Paint_Line(const Mark& mark);
  PixelRect Join_Line(const Mark& mark);
  PixelRect Paint_Text(const Mark& mark, const MarkText& printed);

  /// The pixels that Paint_Text may change.
  PixelRect Room_Of_Text(const Mark& mark, const MarkText& printed);

 private:
  struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  };
  struct ContextDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
  };

  using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;
  using Context = std::unique_ptr<cairo_t, ContextDeleter>;

  cairo_t* Take_Up();
  void Lay_Down();
  void Choose(const Font& font);

  PixelView pixels_;
  Surface surface_;
  Context context_;
  Font font_;
  bool has_font_ = false;
};

}  // namespace sylvomex
