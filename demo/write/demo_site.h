// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// Increases with every change of the site's contents, so that an older site is regenerated.
inline constexpr int kSiteVersion = 12;

/// Writes the whole site below the root: photographs from the air and from within the stand,
/// height models as rasters and triangles, lidar tiles, field data, camera tables, colour map and
/// cursors on the drives; truth.csv and scene.txt beside them, sessions/measure.txt, match.txt,
/// overlays.txt, open.txt and those of the surface searches and the crowns. version.txt with
/// kSiteVersion is written last and marks the site as complete. Throws the RunTimeErrors of the
/// file layer.
void Write_Demo_Site(const Scene& scene, const std::vector<Photograph>& photos,
                     const std::filesystem::path& root);

}  // namespace sylvomex::demo
