// SPDX-License-Identifier: MIT
#pragma once

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

}  // namespace sylvomex
