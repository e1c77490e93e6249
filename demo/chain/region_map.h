// SPDX-License-Identifier: MIT
// A map of the tree tops that a run over the whole stand found: the orthoimage with a ring around
// every top and every missed tree.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "demo/table/detection_table.h"
#include "state/picture.h"

namespace sylvomex::demo {

/// An orthoimage of the forest square: rows from the north, red, green and blue of each cell.
struct StandImage {
  int width = 0, height = 0;  // cells
  std::span<const std::uint8_t> rgb;
};

/// Tree tops of a table with the columns X, Y and Z. RunTimeErrors as for Read_Truth_File.
std::vector<Point3D> Read_Tops(const FilePath& table);

/// Tops with a tree are ringed in green, tops without one in yellow, dominant and visible trees
/// without a top in red; thin lines bound the cells of the search, cell metres a side. A line below
/// explains the colours. RunTimeError(BadContent) when the image has not the bytes of its size.
Picture Draw_Region_Map(const StandImage& image, const std::vector<Point3D>& tops,
                        const std::vector<TrueTree>& truth, double cell);

}  // namespace sylvomex::demo
