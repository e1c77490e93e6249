// SPDX-License-Identifier: MIT
// The quality of a saved measurement, computed anew from its rays.
#pragma once

#include <optional>

#include "overlays/measured_lines.h"

namespace sylvomex {

struct Workspace;

struct MeasuredQuality {
  double std_x = 0, std_y = 0, std_z = 0;  // metres
};

/// The standard deviations of the intersection of the line's rays. std::nullopt for fewer than two
/// rays, for a ray of an image that is not loaded, and where the rays have no intersection.
std::optional<MeasuredQuality> Quality_Of(const Workspace& w, const MeasuredLine& line);

}  // namespace sylvomex
