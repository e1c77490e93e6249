// SPDX-License-Identifier: MIT
// A scripted session that measures tree tops of the site as an operator would: it centres the
// panes on a rough point, clicks the top in every pane that shows it, intersects and saves.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

/// A point some metres from a tree's top, as one would read it from a map: X and Y rounded to 3 m,
/// 15 m above ground.
Point3D Rough_Point(const Tree& tree);

/// Indices of the trees to measure: dominant, at least 25 m inside the forest, seen by at least
/// four photographs; the best of each field of a 6 x 6 grid over the site.
std::vector<std::size_t> Trees_To_Measure(const Scene& scene,
                                          const std::vector<Photograph>& photos);

/// The text of the session. Pane positions are rounded to half a pixel.
std::string Measure_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// The top of the tree on which the panes start, clicked before there is a solution: Ctrl+I fails,
/// after a reset it converges.
std::string First_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// A session that leaves the photographs on screen, centred on a tree.
std::string Open_Session(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
