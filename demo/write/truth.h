// SPDX-License-Identifier: MIT
// The truth of the site: every tree with the position of its top on every photograph.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// The top of a tree on one photograph; col to the right, row from the bottom, continuous.
struct TopOnPhoto {
  double col = 0;
  double row = 0;
  bool visible = false;  // inside the raw file and not hidden
};

/// One entry per photograph, in order.
std::vector<TopOnPhoto> Tops_On_Photos(const Scene& scene, const std::vector<Photograph>& photos,
                                       std::size_t tree);

/// One line per tree: "id,species,X,Y,ground_Z,top_Z,height,crown_radius" and, for every
/// photograph, col, row and visible, with the photograph's id in the column names.
std::string Truth_Table(const Scene& scene, const std::vector<Photograph>& photos);

/// A summary for human readers: settings, sun, photographs, height models, lidar.
std::string Scene_Summary(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
