// SPDX-License-Identifier: MIT
// A scripted session that shows the site's other data over the photographs: height models, lidar,
// field data; with a picture of the window after each overlay.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// Index of the session's tree: dominant, its top shown by all photographs,
/// nearest to the middle of the forest, which is also the middle of a lidar tile. Without one the
/// nearest dominant tree; RunTimeError as from Centre_Tree.
std::size_t Overlay_Tree(const Scene& scene, const std::vector<Photograph>& photos);

/// The text of the session. It loads everything, measures the top of a tree, plays each overlay at
/// that solution and clears the panes in between, writes the residuals of the height models,
/// prints lookups, and searches for photographs of the point: in the aerial archive, and
/// from within the stand by the tree's stem.
std::string Overlay_Session(const Scene& scene, const std::vector<Photograph>& photos,
                            std::size_t tree);

}  // namespace sylvomex::demo
