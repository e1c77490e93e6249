// SPDX-License-Identifier: MIT
// A map whose pixels tell where they lie.
#pragma once

#include <cstdint>
#include <string>

#include "support/temporary_folder.h"

namespace sylvomex {

inline constexpr int kMapWidth = 1000, kMapHeight = 1300;  // of Write_Map, pixels

/// Writes "c:\data\map.raw" and its header "c:\data\map.hdr". Red of map pixel (col, row), from 0,
/// is col mod 251, green row mod 241, blue 7. Ground X of column 0 is 1000, Y of the lower edge
/// 5000; a column is 0.5 m, a row 0.25 m.
inline void Write_Map(const TemporaryFolder& folder) {
  std::string bytes;
  for (int row = 0; row < kMapHeight; ++row) {
    for (int col = 0; col < kMapWidth; ++col) {
      bytes += {static_cast<char>(col % 251), static_cast<char>(row % 241), 7};
    }
  }
  folder.Make_Folder("f");
  folder.Write("c/data/map.raw", bytes);
  folder.Write("c/data/map.hdr", "\"c:\\data\\map.raw\"\n1000\n5000\n0.25\n0.5\n1000\n1300\n1\n");
}

}  // namespace sylvomex
