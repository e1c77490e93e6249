// SPDX-License-Identifier: MIT
// The questions that the orthoimage commands share, and the writing of their results.
#pragma once

#include <exception>
#include <optional>
#include <string>

#include "platform/drive_map.h"
#include "products/ortho_grid.h"

namespace sylvomex {

struct Workspace;

inline constexpr const char* kOrthoTitle = "Orthoimage computation";

/// What stands for every run-time failure of the orthoimage commands.
void Say_Too_Wide(Workspace& w, const std::exception& failure);

/// What an answer that is no number does.
enum class BadAnswer {
  IsTold,       // shows Say_Too_Wide; the value stays
  EndsCommand,  // RunTimeError(TypeMismatch), as of Parse_Double
};

struct NumberQuestion {
  std::string prompt;
  double value = 0;  // what stays after a bad answer that is told
  std::string preset;
};

/// Asks for a number; nothing when the question was dismissed.
std::optional<double> Ask_Number(Workspace& w, const NumberQuestion& question, BadAnswer bad);

struct OrthoExtent {
  double X0 = 0, Y0 = 0;              // lower left corner, metres
  double extent_x = 0, extent_y = 0;  // metres
  double pixel = 0;                   // metres
};

/// Five questions; nothing when one was dismissed.
std::optional<OrthoExtent> Ask_Extent(Workspace& w, BadAnswer bad);

/// RunTimeErrors of Make_Ortho_Grid.
OrthoGrid Grid_Of(const Workspace& w, const OrthoExtent& extent);

/// Shows "Columns: " and "  Rows: ".
void Show_Size(Workspace& w, const OrthoGrid& grid);

/// Asks for the name of a result; nothing when the question was dismissed or left empty.
std::optional<FilePath> Ask_Result_Name(Workspace& w);

/// Shows the name with " written".
void Say_Written(Workspace& w, const std::string& name);

}  // namespace sylvomex
