// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "panes/picture_painter.h"

namespace sylvomex {

/// The room that labels have taken in a picture, in squares of a few pixels.
class LabelRoom {
 public:
  LabelRoom(int width, int height);

  /// Takes the rectangle when no label before it reaches into it by more than a square.
  bool Take(const PixelRect& label);

 private:
  int columns_, rows_;
  std::vector<bool> taken_;
};

/// Paint_Marks, with the texts left out that would run into one painted before them.
PixelRect Paint_Marks_Thinned(const PixelView& pixels, const Picture& picture, std::size_t first,
                              LabelRoom& room);

}  // namespace sylvomex
