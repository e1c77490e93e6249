// SPDX-License-Identifier: MIT
// A scripted session that searches for the tree tops of one plot by template matching: the plot
// lies around a model tree, whose crown is the template.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// The model tree's index in the stand: of the birches of 20 m or more within
/// 45 m of the forest's middle that all photographs show, the one with the most visible
/// dominant trees within the plot's 23 m. A birch's crown is neither as pointed as a spruce's nor
/// as flat as a pine's, so it resembles the tops of all three. Without such a birch it is the
/// dominant tree nearest to the middle.
std::size_t Model_Tree(const Scene& scene, const std::vector<Photograph>& photos);

/// Centres the panes on the model tree and clicks on its top in each of them, so that they can zoom
/// to it.
std::string Model_Click_Steps(const Tree& tree, const std::vector<Photograph>& photos);

/// The text of the session.
std::string Match_Session(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
