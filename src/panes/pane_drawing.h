// SPDX-License-Identifier: MIT
// Drawing in object space on the panes.
#pragma once

#include "imageblock/pane_view.h"
#include "imageblock/pixel_position.h"
#include "platform/colour.h"
#include "platform/point3d.h"

namespace sylvomex {

struct Workspace;

/// Pane position of a full-image position in pane k with its current view. Correlation panes
/// (ImageKinds 2) use the tables of the correlation images.
PanePosition Pane_Of_Pixel(const Workspace& w, int image, const PixelPosition& pixel);

/// Pane position of an object point in pane k, by Pane_Of_Pixel.
PanePosition Pane_Of_Point(const Workspace& w, int image, const Point3D& point);

/// Position at which overlays (lidar echoes, field trees, borders, saved points) draw a full-image
/// position or an object point in pane k: one pane pixel left of and above that of
/// Pane_Of_Pixel.
PanePosition Overlay_Of_Pixel(const Workspace& w, int image, const PixelPosition& pixel);
PanePosition Overlay_Of_Point(const Workspace& w, int image, const Point3D& point);

/// Full-image position of a pane position. Correlation panes as for Pane_Of_Pixel.
PixelPosition Pixel_Of_Pane(const Workspace& w, int image, double px, double py);

inline constexpr Colour kWhite{255, 255, 255};
inline constexpr Colour kRed{255, 0, 0};
inline constexpr Colour kGreen{0, 255, 0};
inline constexpr Colour kYellow{255, 255, 0};

}  // namespace sylvomex
