// SPDX-License-Identifier: MIT
// What a task needs, told before it starts: seconds on one thread, roughly, and bytes of memory, at
// most. The constants are measured (docs/regions.md tells how).
#pragma once

#include <cstdint>
#include <vector>

#include "matching/tree_top_chain.h"

namespace sylvomex {

struct TaskNeeds {
  double seconds = 0;
  std::uint64_t bytes = 0;
};

/// One image of a search: the side of its patch, the columns of its raw file and its bytes a pixel.
struct PatchNeeds {
  double side = 0, columns = 0;
  double pixel_bytes = 1;
};

/// A search: its images, its mesh (points at most, and as expected), the bytes of the models'
/// windows.
TaskNeeds Needs_Of_Search(const std::vector<PatchNeeds>& patches, double most_points,
                          double usual_points, std::uint64_t model_bytes);

/// A tile of an orthoimage: its cells, bytes a cell, the bytes of its image's rows and of the
/// model's window.
TaskNeeds Needs_Of_Tile(double cells, double pixel_bytes, double image_bytes,
                        std::uint64_t model_bytes);

/// Points of a search mesh of a side when every column is so high, metres.
double Mesh_Points(const TreeTopNumbers& numbers, double side, double canopy_height);

}  // namespace sylvomex
