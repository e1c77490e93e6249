// SPDX-License-Identifier: MIT
// What planning has at hand: the site, its images with the ground that they show, its models.
#pragma once

#include <memory>
#include <vector>

#include "region/mapped_model.h"
#include "region/model_trees.h"
#include "region/region_images.h"

namespace sylvomex {

struct PlanBlock {
  const RegionOrder& order;
  Site site;
  std::vector<RegionImage> images;
  std::vector<MapExtent> grounds;  // of the images, at the heights of the region
  std::unique_ptr<MappedModel> dem, chm;
  std::vector<ModelTree> trees;
};

/// Indices of the images whose ground holds a place, the nearest nadir first.
std::vector<int> Images_Over(const PlanBlock& block, double X, double Y);

/// Plans a plot or a tile of an area; Refused with the cause when it cannot be done.
RegionTask Plan_Plot(const PlanBlock& block, const std::string& id, const OwnCell& cell,
                     double radius);

/// Plans a tile of the orthoimage, given in working coordinates; Refused with the cause when it
/// cannot be done. uses_colour: whether colour images serve, or grey ones.
RegionTask Plan_Tile(const PlanBlock& block, const GivenOrthoimage& orthoimage, int column, int row,
                     bool uses_colour);

}  // namespace sylvomex
