// SPDX-License-Identifier: MIT
#pragma once

#include <limits>

#include "heightmodels/raster_model.h"

namespace sylvomex {

/// Heights for an orthoimage: a raster model, null for none, and what takes the place of ground
/// below a limit, which includes every place outside the model.
struct OrthoHeights {
  const RasterModel* model = nullptr;
  double elsewhere = 170;      // metres
  double lowest_ground = 100;  // metres

  /// The height that counts where the model answers Z, metres.
  [[nodiscard]] double Replaced(double Z) const { return Z < lowest_ground ? elsewhere : Z; }

  /// The height that counts everywhere when there is no model.
  [[nodiscard]] double Without_Model() const { return Replaced(-99); }
};

/// The heights as the model tells them: 0 outside it, -99 without one.
inline OrthoHeights Heights_As_Told(const RasterModel* model) {
  return {model, 0, -std::numeric_limits<double>::infinity()};
}

}  // namespace sylvomex
