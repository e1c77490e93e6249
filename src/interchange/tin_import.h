// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "interchange/import_transaction.h"
#include "interchange/told_share.h"

namespace sylvomex {

struct TinReport {
  std::uint64_t nodes = 0, triangles = 0, tiles = 0;
  std::vector<std::string> notes;  // a sentence each
};

/// Makes "c:\data\models\tin.nod", "tin.tri" and the tile files in "c:\data\Tris\" of rasters and
/// of the ground echoes of lidar files (see tin_nodes.h). Coordinates are rounded to 0.1 mm. Tile
/// files of an earlier model become empty where the new one has no triangle.
TinReport Import_Tin(ImportTransaction& transaction,
                     const std::vector<std::filesystem::path>& files, const ToldShare& told = {});

}  // namespace sylvomex
