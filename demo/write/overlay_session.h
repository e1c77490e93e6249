// SPDX-License-Identifier: MIT
// A scripted session that shows everything else that the site holds over the photographs: height
// models, lidar, field data; with a picture of the window after each overlay.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// The tree of the session, position in the stand: dominant, its top shown by all photographs,
/// nearest to the middle of the forest, which is the middle of a lidar tile, too. Without one the
/// nearest dominant tree; RunTimeError as of Centre_Tree.
std::size_t Overlay_Tree(const Scene& scene, const std::vector<Photograph>& photos);

/// The session's text. It loads everything, measures the top of a tree, plays each overlay at
/// that solution and clears the panes between them, writes the residuals of the height models,
/// prints lookups, and finds the photographs that show the point: in the aerial archive, and
/// from within the stand by the stem of the tree.
std::string Overlay_Session(const Scene& scene, const std::vector<Photograph>& photos,
                            std::size_t tree);

}  // namespace sylvomex::demo
