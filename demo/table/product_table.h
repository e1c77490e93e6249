// SPDX-License-Identifier: MIT
// How true the image products of the site are, and the map that becomes of an orthoimage.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/point3d.h"
#include "products/ortho_grid.h"

namespace sylvomex::demo {

/// Where targets lie in an orthoimage less where they belong, in cells. A cell shows the ground one
/// pixel further east and north than its own place, so a target belongs one cell south-west of
/// its own.
struct TargetErrors {
  std::vector<double> columns, rows;
  int missing = 0;  // targets that the orthoimage does not show
};

/// cells: a grey orthoimage of white discs on black. Each position is the centre of gravity of what
/// is lit within ten cells.
TargetErrors Compare_Targets(std::span<const std::uint8_t> cells, const OrthoGrid& grid,
                             const std::vector<Point3D>& places);

/// Tops measured in the full images and in the cut-outs.
struct CutOutTable {
  int tops = 0;                   // measured in both
  double largest_difference = 0;  // of any coordinate, metres
  double rms_full = 0;            // of all coordinates less the true top, metres
};

/// From the transcript of the product session.
CutOutTable Compare_Cut_Outs(std::string_view transcript);

/// Pixels of each id of a zone mask, less those of a circle of the radius on flat ground, in per
/// cent of them. pixel: side of a pixel on the ground, metres.
double Zone_Excess(std::span<const std::uint8_t> mask, int id, double radius, double pixel);

/// Share of cells that are not black.
double Covered_Share(std::span<const std::uint8_t> colour_cells);

std::string Table_Text(const TargetErrors& errors);
std::string Table_Text(const CutOutTable& table);

/// The rows of an orthoimage of three bytes a cell from the north, as maps have them.
std::vector<std::uint8_t> North_Up(std::span<const std::uint8_t> cells, const OrthoGrid& grid);

/// The header of such a map: its read-out tells the ground that a cell shows. shift: how many cells
/// further north and east than its own place that is, 1 in an orthoimage, 0 in a mosaic.
std::string Map_Header_Text(const std::string& raw_name, const OrthoGrid& grid, int shift);

}  // namespace sylvomex::demo
