// SPDX-License-Identifier: MIT
// Scripted sessions that evaluate the system against the truth: the tree-top run of the site
// against the trees of its plot, and the orientation of the photographs against ground points.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

/// The matching session, then the evaluation of its tree tops against the true trees around the
/// model tree, with a picture of the six graphs.
std::string Evaluation_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// Ground points from every two successive photographs, and the footprints of all photographs.
std::string Orientation_Session();

/// The input files of both: the trees of the plot as a plot text file; ground points every 30 m
/// over the forest, their film positions to a micrometre, the pairs, and the flight lines.
void Write_Evaluation_Files(const Scene& scene, const std::vector<Photograph>& photos,
                            const DriveMap& drives);

}  // namespace sylvomex::demo
