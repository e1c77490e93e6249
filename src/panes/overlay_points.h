// SPDX-License-Identifier: MIT
// Many object points on a pane at once.
#pragma once

#include <span>

#include "platform/colour.h"
#include "platform/point3d.h"

namespace sylvomex {

struct Workspace;

struct OverlayPoint {
  Point3D at;
  Colour colour;
};

/// Plots the points in their order on the panes of all images, each with its present pen
/// width, where Overlay_Of_Point would put them, to the bit.
void Plot_Overlay_Points(Workspace& w, std::span<const OverlayPoint> points);

}  // namespace sylvomex
