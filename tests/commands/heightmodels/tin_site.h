// SPDX-License-Identifier: MIT
// Files of small triangulated models on the drives under a folder.
#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/temporary_folder.h"

namespace sylvomex {

/// A rectangle in two triangles; Z = ground + slope (X - west).
struct TinSheet {
  double west = 1000, south = 0, east = 1010, north = 10;
  double ground = 300, slope = 1;

  [[nodiscard]] double Height(double X) const { return ground + slope * (X - west); }
};

/// Writes "c:\data\<name>.nod" and ".tri".
inline void Write_Tin(const TemporaryFolder& folder, const std::string& name,
                      const TinSheet& sheet) {
  std::ostringstream nodes;
  nodes.precision(17);
  for (const auto& [X, Y] : {std::pair{sheet.west, sheet.south},
                             {sheet.east, sheet.south},
                             {sheet.east, sheet.north},
                             {sheet.west, sheet.north}}) {
    nodes << X << "," << Y << "," << sheet.Height(X) << "\n";
  }
  folder.Write("c/data/" + name + ".nod", nodes.str());
  folder.Write("c/data/" + name + ".tri", "0,1,2\n0,2,3\n");
}

/// A raster model with one height: "c:\data\<name>.hdr" and its cells of 10 m.
inline void Write_Level_Raster(const TemporaryFolder& folder, const std::string& name,
                               double origin_X, double origin_Y, int lines, float height) {
  std::ostringstream header;
  header.precision(17);
  header << lines << "\n"
         << lines << "\n"
         << origin_X << "\n"
         << origin_Y << "\n10\n-99\nc:\\data\\" << name << ".bin\n";
  folder.Write("c/data/" + name + ".hdr", header.str());
  const std::vector<float> cells(static_cast<std::size_t>(lines) * static_cast<std::size_t>(lines),
                                 height);
  folder.Write("c/data/" + name + ".bin",
               {reinterpret_cast<const char*>(cells.data()), cells.size() * sizeof(float)});
}

}  // namespace sylvomex
