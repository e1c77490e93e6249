// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "demo/scene/crown.h"
#include "demo/scene/ground.h"
#include "demo/scene/site_settings.h"

namespace sylvomex::demo {

/// Trees by random sequential placement with a hard core (Diggle 2013, Statistical Analysis of
/// Spatial and Spatio-Temporal Point Patterns, section 6.5.1): no two crowns overlap in plan, and
/// all lie within the forest square. Openings come from a low-frequency density noise. Most trees
/// are dominant; heights are 8 to 28 m. Ids count from 1 in the order of the vector.
std::vector<Tree> Plant_Stand(const SiteSettings& settings, const Ground& ground);

}  // namespace sylvomex::demo
