// SPDX-License-Identifier: MIT
// A magnifier's view of the raster that a pane shows.
#pragma once

#include <optional>

#include "imageblock/pane_bitmap.h"
#include "imageblock/pane_view.h"

namespace sylvomex {

struct Workspace;

struct MagnifiedView {
  PaneBitmap pixels;    // side by side magnifier pixels
  PanePosition corner;  // pane position of the top left corner
  double scale_x = 1;   // magnifier pixels per pane pixel
  double scale_y = 1;

  /// The pane position that the pane's own formulas give for a magnifier position, and back.
  [[nodiscard]] PanePosition To_Pane(double mx, double my) const {
    return {corner.px + mx / scale_x, corner.py + my / scale_y};
  }
  [[nodiscard]] PanePosition From_Pane(const PanePosition& at) const {
    return {(at.px - corner.px) * scale_x, (at.py - corner.py) * scale_y};
  }
};

/// The raw pixels around a pane position, each as a block of factor by factor, in a square of
/// side pixels. The position is in the middle, to the nearest magnifier pixel, except beside the
/// raster's edge; where the raster is too small the rest is black. std::nullopt for a pane without
/// an image or whose file cannot be read.
std::optional<MagnifiedView> Magnify(Workspace& w, int image, const PanePosition& at, int factor,
                                     int side);

/// The ends of the epipolar line of the observation clicked last, on the pane: the ray's points
/// EpipolarZDepth below and above the solution. std::nullopt without a solution or an observation,
/// and on the pane of that observation itself.
struct EpipolarEnds {
  PanePosition lower;
  PanePosition upper;
};
std::optional<EpipolarEnds> Epipolar_Ends(const Workspace& w, int image);

}  // namespace sylvomex
