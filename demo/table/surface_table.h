// SPDX-License-Identifier: MIT
// How well the vertical line searches met the surface of the site.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "demo/scene/scene.h"
#include "demo/table/sample_statistics.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

struct SurfaceDifference {
  double metres = 0;     // found less true
  bool accepted = true;  // its score lies above the limit of its search
};

struct SurfaceSample {
  std::string name;
  std::vector<SurfaceDifference> differences;
  double limit = 0;  // half a search step and 0.1 m
};

/// The places of a session of single heights, by their kinds in the order of appearance ("pair,
/// heath", ...). A place is what a line that says its kind and true height begins, and score and
/// solution after it.
std::vector<SurfaceSample> Read_Surface_Points(std::string_view transcript);

/// The nodes of a polygon run: those with ground 1 m about them by the ground below them, those
/// inside a crown's outline by the canopy above them; nodes at outlines count in neither. A kind
/// without nodes has no sample.
std::vector<SurfaceSample> Read_Surface_Nodes(const FilePath& nodes, const Scene& scene,
                                              const std::string& name, double limit);

/// A triangulation less the truth, of "X Y Z raster TIN" lines.
SurfaceSample Read_Surface_Residuals(const FilePath& file, const std::string& name, double limit);

/// All samples of the demo's output folder, by the names of its sessions.
std::vector<SurfaceSample> Surface_Samples_Of(const std::filesystem::path& folder,
                                              const Scene& scene);

/// n, how many were accepted, the shares of both within the limit; of those accepted mean, RMS and
/// how many miss by more than 1 m, and the RMS without those; aligned.
std::string Table_Text(const std::vector<SurfaceSample>& samples);

}  // namespace sylvomex::demo
