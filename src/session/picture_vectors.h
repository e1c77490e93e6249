// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "state/picture.h"

namespace sylvomex {

struct Workspace;

/// A bar of a round length on the ground.
struct ScaleBar {
  double metres = 0;
  double pixels = 0;  // pane pixels

  [[nodiscard]] std::string Text() const;
};

/// The longest bar of 1, 2 or 5 times a power of ten metres that takes at most a quarter of a
/// width. pixels_of_a_metre and width: pane pixels, above 0.
ScaleBar Scale_Bar_For(double pixels_of_a_metre, double width);

/// The bar of a pane, along its middle at the height of the solution. std::nullopt for another
/// picture than a pane with a photograph, and without a solution.
std::optional<ScaleBar> Scale_Bar_Of(const Workspace& w, const Picture& picture);

/// Whether a file's ending, ".svg" or ".pdf", asks for vectors.
bool Is_Vector_File(const std::filesystem::path& file);

/// Writes the inside of a pane as SVG or PDF: the bitmap as it is, points, lines and texts as
/// shapes above it, and the bar, if any, at the lower left. Pens that join with the pixels under
/// them multiply these. RunTimeError for a picture without a size and a file that cannot be
/// written.
void Save_Picture_Vectors(const Picture& picture, const std::optional<ScaleBar>& bar,
                          const std::filesystem::path& file);

}  // namespace sylvomex
