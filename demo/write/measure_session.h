// SPDX-License-Identifier: MIT
// A scripted session that measures tree tops of the site as an operator would: it centres the
// panes on a rough point, clicks the top in every pane that shows it, intersects and saves.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

/// A point some metres off a tree's top, as one would take it from a map: X and Y to the next
/// 3 m, 15 m above ground.
Point3D Rough_Point(const Tree& tree);

/// Trees to measure, positions in the stand: dominant, 25 m and more inside the forest, seen by
/// at least four photographs; the best of each field of a 6 x 6 grid over the site.
std::vector<std::size_t> Trees_To_Measure(const Scene& scene,
                                          const std::vector<Photograph>& photos);

/// The session's text. Pane positions are rounded to half a pixel.
std::string Measure_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// A session that leaves the photographs on the screen, centred on a tree.
std::string Open_Session(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
