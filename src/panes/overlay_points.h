// SPDX-License-Identifier: MIT
// Plots many object points on the panes at once.
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

/// Plots the points in order on the panes of all images, with each pane's current pen width;
/// positions are bit for bit those of Overlay_Of_Point.
void Plot_Overlay_Points(Workspace& w, std::span<const OverlayPoint> points);

}  // namespace sylvomex
