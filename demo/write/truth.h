// SPDX-License-Identifier: MIT
// What is true about the site: every tree with the place of its top on every photograph.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// The top of a tree on one photograph; col to the right, row from the bottom, continuous.
struct TopOnPhoto {
  double col = 0;
  double row = 0;
  bool visible = false;  // on the raw file, and nothing stands before it
};

/// One entry for each photograph, in their order.
std::vector<TopOnPhoto> Tops_On_Photos(const Scene& scene, const std::vector<Photograph>& photos,
                                       std::size_t tree);

/// "id,species,X,Y,ground_Z,top_Z,height,crown_radius" and, for every photograph, col, row and
/// visible with its id in the column's name; one line a tree.
std::string Truth_Table(const Scene& scene, const std::vector<Photograph>& photos);

/// Plain text for the reader: settings, sun, photographs, height models, lidar.
std::string Scene_Summary(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
