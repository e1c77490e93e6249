// SPDX-License-Identifier: MIT
#pragma once

#include "support/small_site.h"

namespace sylvomex {

/// A vertical photograph 1000 m above ground at 160 m, of which a pixel is 2 m there: column 500 +
/// (X - X0) / 2, row 500 + (Y - Y0) / 2 from the bottom, raw row SubHeight - 1 - row for products.
/// Its 1000 pixels reach 0.1 m from the principal point.
inline SmallImage Wide_Image(int id, double X0) {
  SmallImage image;
  image.id = id;
  image.X0 = X0;
  image.Z0 = 1160;
  image.a1 = image.b2 = 5000;
  return image;
}

}  // namespace sylvomex
