// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "interchange/site.h"
#include "interchange/told_share.h"
#include "platform/point3d.h"

namespace sylvomex {

struct TinNodes {
  std::vector<Point3D> nodes;  // world metres
  std::vector<std::string> notes;
};

/// The nodes for a triangulated terrain model: the centres of the cells of rasters that have a
/// height, and the echoes of class 2 (ground) of LAS and LAZ files. Where there would be more than
/// `most`, rasters give every second (third, ...) row and column, and lidar one echo for each
/// square of a grid; both are told.
///
/// Refused as told in raster_mosaic.h and lidar_sources.h, and for less than three nodes.
TinNodes Read_Tin_Nodes_From(
    const std::vector<std::filesystem::path>& files, const std::string& site_crs, std::size_t most,
    const std::function<std::filesystem::path(const std::string&)>& new_file,
    const ToldShare& told = {});

}  // namespace sylvomex
