// SPDX-License-Identifier: MIT
// Scripted sessions that judge the system by what is true: the tree-top run of the site against the
// trees of its plot, and the orientation of the photographs against points on the ground.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

/// The matching session, then the evaluation of its tree tops against the true trees around the
/// model tree, with a picture of the six graphs.
std::string Evaluation_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// Points of the ground from every two successive photographs, and footprints of them all.
std::string Orientation_Session();

/// Their inputs: the trees of the plot as a plot text file; ground points every 30 m over the
/// forest, their film positions to a micrometre, the pairs, and the lines of flight.
void Write_Evaluation_Files(const Scene& scene, const std::vector<Photograph>& photos,
                            const DriveMap& drives);

}  // namespace sylvomex::demo
