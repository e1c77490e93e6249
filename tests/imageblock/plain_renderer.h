// SPDX-License-Identifier: MIT
// A straightforward renderer: one byte position for each row read, one work array, one loop over
// all pixels. Slow; the reference for the fast one.
#pragma once

#include "imageblock/pane_renderer.h"

namespace sylvomex {

struct PlainRender {
  PaneBitmap picture;
  int exceeding = 0;  // pane pixels that the zoom-out test found outside
};

PlainRender Render_Plainly(const RawPixels& raw, const RenderRequest& request, bool colour);

}  // namespace sylvomex
