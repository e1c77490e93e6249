// SPDX-License-Identifier: MIT
// Steps shared by the scripted sessions of the site.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "imageblock/pane_view.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

/// Side of the square panes of six images in the sessions' start client area of 1280 x 1024: three
/// columns share 1280 - 140 pixels.
inline constexpr int kSessionPaneSide = 380;

/// The view of a pane at zoom 1 after the panes were centred on a point.
PaneView View_Centred_On(const Photograph& photo, const Point3D& point, int pane_side);

std::string Add_Image_Steps(const std::vector<Photograph>& photos);

/// Adds a raster ground model.
std::string Add_Ground_Steps(const char* header);

/// Adds all photographs and the ground model of the forest.
std::string Load_Steps(const std::vector<Photograph>& photos);

/// A picture of a window at a stage of the work, c:\data\demo\<stage>.png. Skipped by a build
/// without windows.
std::string Window_Picture(const char* window, const std::string& stage);

/// Sets the solution to a point, to 1 cm.
std::string Solution_Steps(const Point3D& point);

/// Solution_Steps, then centres the panes on it.
std::string Centre_Steps(const Point3D& point);

/// Clicks on the top of a tree in every pane that shows it, with the panes centred on a point.
/// Positions are rounded to half a pixel.
std::string Click_Steps(const Scene& scene, const std::vector<Photograph>& photos, std::size_t tree,
                        const Point3D& centre);

}  // namespace sylvomex::demo
