// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "interchange/site.h"

namespace sylvomex {

/// A measured tree whose crown can be the template of a search.
struct ModelTree {
  std::string id;
  Point3D top;  // working coordinates
};

/// Reads measured trees: a table (".csv") with the columns id, x, y, z in world coordinates, or an
/// observation file of the workstation, whose points are numbered by their lines. Refused, naming
/// file and line, for what is neither, and for a file without a tree.
std::vector<ModelTree> Read_Model_Trees(const std::filesystem::path& file, const Site& site);

}  // namespace sylvomex
