// SPDX-License-Identifier: MIT
#pragma once

#include <cstring>
#include <string>

#include "support/temporary_folder.h"

namespace sylvomex {

/// Script steps that load the model of Write_Flat_Model.
inline constexpr const char* kLoadFlatModel =
    "file c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n";

/// Writes a raster terrain model "c:\data\dem.hdr" of 40 x 40 cells of 100 m from (-2000, -2000)
/// on, all of one height but for the columns from hole_col on, which are 0.
inline void Write_Flat_Model(const TemporaryFolder& folder, float height, int hole_col = 40) {
  std::string cells;
  for (int k = 0; k < 40 * 40; ++k) {
    const float cell = k % 40 < hole_col ? height : 0;
    cells.append(reinterpret_cast<const char*>(&cell), sizeof cell);
  }
  folder.Write("c/data/dem.raw", cells);
  folder.Write("c/data/dem.hdr", "40 40 -2000 -2000 100 -99\nc:\\data\\dem.raw\n");
}

}  // namespace sylvomex
