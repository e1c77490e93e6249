// SPDX-License-Identifier: MIT
// How well the vertical line searches met the surface of the site.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "demo/scene/scene.h"
#include "demo/table/sample_statistics.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

/// Differences found less true, metres.
struct SurfaceSample {
  std::string name;
  std::vector<double> differences;
  double limit = 0;  // half a search step and 0.1 m
};

/// The places of the session of single heights, by their kinds in the order of appearance
/// ("pair ground", ...).
std::vector<SurfaceSample> Read_Surface_Points(std::string_view transcript);

/// The nodes of a polygon run: those with ground 1 m about them by the ground below them, those
/// inside a crown's outline by the canopy above them; nodes at outlines count in neither.
std::vector<SurfaceSample> Read_Surface_Nodes(const FilePath& nodes, const Scene& scene,
                                              const std::string& name, double limit);

/// n, share within the limit, mean, RMS and blunders of more than 1 m, and mean and RMS without
/// them, aligned.
std::string Table_Text(const std::vector<SurfaceSample>& samples);

}  // namespace sylvomex::demo
