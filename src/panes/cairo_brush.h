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

  /// Both return the pixels that may have changed.
  PixelRect Paint_Line(const Mark& mark);
  PixelRect Paint_Text(const Mark& mark, const MarkText& printed);

 private:
  struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  };
  struct ContextDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
  };

  cairo_t* Take_Up();
  void Lay_Down();
  void Choose(const Font& font);

  PixelView pixels_;
  std::unique_ptr<cairo_surface_t, SurfaceDeleter> surface_;
  std::unique_ptr<cairo_t, ContextDeleter> context_;
  Font font_;
  bool has_font_ = false;
};

}  // namespace sylvomex
