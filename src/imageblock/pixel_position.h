// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

/// A full-image position in pixels: col to the right, row counted from the bottom. Integer values
/// are pixel centres.
struct PixelPosition {
  double col = 0;
  double row = 0;
};

}  // namespace sylvomex
