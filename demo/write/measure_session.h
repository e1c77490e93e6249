// SPDX-License-Identifier: MIT
// A scripted session that measures tree tops of the site as an operator would: it centres the
// panes on a rough point, clicks the top in every pane that shows it, intersects and saves.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "imageblock/pane_view.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

/// Side of the square panes of six images in the client area of 1280 x 1024 that sessions start
/// with: three columns share 1280 - 140 pixels.
inline constexpr int kSessionPaneSide = 380;

/// A point some metres off a tree's top, as one would take it from a map: X and Y to the next
/// 3 m, 15 m above ground.
Point3D Rough_Point(const Tree& tree);

/// The view of a pane at zoom 1 after the panes were centred on a point.
PaneView View_Centred_On(const Photograph& photo, const Point3D& point, int pane_side);

/// Trees to measure, positions in the stand: dominant, 25 m and more inside the forest, seen by
/// at least four photographs; the best of each field of a 6 x 6 grid over the site.
std::vector<std::size_t> Trees_To_Measure(const Scene& scene,
                                          const std::vector<Photograph>& photos);

/// The session's text. Pane positions are rounded to half a pixel.
std::string Measure_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// A session that leaves the photographs on the screen, centred on a tree.
std::string Open_Session(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
