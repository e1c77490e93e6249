// SPDX-License-Identifier: MIT
// Scripted sessions that model crowns from lidar and photographs.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// The middle of the box of 50 m by 50 m for a fit around a tree: the place nearest to the tree
/// from which the box does not leave the tree's lidar tile, the only one that is read.
Point3D Crown_Box_Middle(const Tree& tree);

/// Loads a ground model and photographs (two suffice), then fits the crowns of the box, by species
/// 0. No pictures.
std::string Crown_Box_Steps(const Point3D& middle);

/// The crowns around the model tree of the matching session with pictures, ten trees of each
/// species one by one ("say local ID" before each), and the pulses that hit the crowns of the list.
std::string Crown_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// Heights of thirty trees by one click each from 3 m too high or too low ("say click ID" before
/// each). It needs the whole photographs.
std::string Multi_Size_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// The true crowns in the lidar campaigns' area, tile by tile: X, Y, top Z, base Z, species from 1,
/// width.
std::string Crown_List(const Scene& scene);

/// The colour photographs of the site as whole ones: the raw file is the whole image and its
/// pixels are counted from its own corner, which the multi-size measure takes for granted. The
/// headers are c:\data\demo\whole1.hdr and so on.
std::vector<Photograph> Whole_Photographs(const std::vector<Photograph>& photos);

/// The number that stands for a species among the four ticks: pine 1, spruce 2, birch 3.
int Species_Tick(Species species);

}  // namespace sylvomex::demo
