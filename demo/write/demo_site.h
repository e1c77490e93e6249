// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// Writes the whole site below the root: photographs, height models, colour map and cursors on
/// drive c, truth.csv and scene.txt beside the drives, sessions/measure.txt and match.txt.
/// RunTimeError as the files raise it.
void Write_Demo_Site(const Scene& scene, const std::vector<Photograph>& photos,
                     const std::filesystem::path& root);

}  // namespace sylvomex::demo
