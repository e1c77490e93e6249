// SPDX-License-Identifier: MIT
// The questions that the orthoimage commands share, and the writing of their results.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "products/ortho_grid.h"

namespace sylvomex {

struct Workspace;

inline constexpr const char* kOrthoTitle = "Orthoimage computation";

/// What stands for every run-time failure of the orthoimage commands.
void Say_Too_Wide(Workspace& w);

/// Asks for a number; nothing when the question was dismissed. An answer that is no number shows
/// Say_Too_Wide and gives the value.
std::optional<double> Ask_Number(Workspace& w, const std::string& prompt, double value,
                                 const std::string& preset = "");

struct OrthoExtent {
  double X0 = 0, Y0 = 0;              // lower left corner, metres
  double extent_x = 0, extent_y = 0;  // metres
  double pixel = 0;                   // metres
};

/// Five questions; nothing when one was dismissed.
std::optional<OrthoExtent> Ask_Extent(Workspace& w);

/// RunTimeErrors of Make_Ortho_Grid.
OrthoGrid Grid_Of(const OrthoExtent& extent);

/// Shows "Columns: " and "  Rows: ".
void Show_Size(Workspace& w, const OrthoGrid& grid);

/// Asks for the name of a result and writes it as a whole; then shows the name with " written". A
/// failure shows Say_Too_Wide, a dismissal writes nothing.
void Ask_Name_And_Write(Workspace& w, std::span<const std::uint8_t> cells);

}  // namespace sylvomex
