// SPDX-License-Identifier: MIT
#pragma once

#include "platform/point3d.h"

namespace sylvomex {

struct Workspace;

/// Looks at the surroundings of a point in one image with the resized crown templates and
/// marks the point on all panes. Ends quietly when a template file of the image is missing; where
/// the band of rows around the point leaves the raster, only the marks are set.
void Multi_Size_Check(Workspace& w, int image, const Point3D& point);

}  // namespace sylvomex
