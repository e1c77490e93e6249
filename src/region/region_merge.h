// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "region/plan_record.h"
#include "region/region_survey.h"

namespace sylvomex {

struct RegionMerge {
  std::size_t tasks = 0, done = 0;
  std::size_t found = 0;  // tops within or near the cells of their tasks
  std::size_t trees = 0;  // tops that are left, one a tree
  std::size_t tiles = 0;
  std::vector<std::string> files;
};

/// Joins the results of a plan in a folder: "tree_tops.gpkg" (layer tree_tops), "orthoimage.tif" (a
/// cloud-optimised GeoTIFF, black where no tile is), "report.txt", "report.html" and "map.svg". The
/// first two have the same bytes whenever and wherever they are made.
///
/// Refused while tasks are not done, unless is_partial, and for results that do not match their
/// checksums; FailedOnTheWay when a file cannot be written. threads: of the mosaic's compression.
RegionMerge Merge_Region(const RegionPlan& plan, const TaskStore& store,
                         const std::filesystem::path& output, bool is_partial, int threads);

/// The mosaic of tiles; they may be fewer than the orthoimage has. The bytes are the same on one
/// thread and on many.
void Write_Mosaic(const RegionPlan& plan, const std::vector<std::filesystem::path>& tiles,
                  const std::filesystem::path& output, int threads);

}  // namespace sylvomex
