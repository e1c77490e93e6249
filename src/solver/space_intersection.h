// SPDX-License-Identifier: MIT
// Object point from two or more film observations by iterated least squares (Gauss-Newton on
// the collinearity equations; Mikhail, Bethel and McGlone 2001, section 4.4).
#pragma once

#include <functional>
#include <span>

#include "solver/camera_model.h"

namespace sylvomex {

struct Point3D {
  double X = 0, Y = 0, Z = 0;  // metres
};

struct FilmObservation {
  const ImageRecord* image = nullptr;
  const RotationMatrix* rotation = nullptr;
  double x = 0, y = 0;  // film, metres
};

struct IntersectionSettings {
  double stop_dx = 0.03;  // metres; a correction below all three ends the iteration
  double stop_dy = 0.03;
  double stop_dz = 0.03;
  int max_passes = 100;
};

struct IntersectionResult {
  bool singular = false;   // |det N| < 1e-200 in some pass; the other fields are then the
                           // state of that pass
  int passes = 0;
  Point3D point;           // metres
  double rmse_um = 0;      // micrometres, from the sum of squares of the last pass / (2n - 3)
  double std_x = 0;        // metres
  double std_y = 0;
  double std_z = 0;
};

/// observations: 2 to 9, else RunTimeError(SubscriptOutOfRange) above 9. start: first
/// approximation. A pass whose correction in X is exactly 0 counts as not yet converged. At
/// the pass limit the last corrections are applied twice. before_next_pass is called after
/// each pass that is followed by another one.
IntersectionResult Intersect_Rays(std::span<const FilmObservation> observations,
                                  const Point3D& start, const IntersectionSettings& settings,
                                  const std::function<void()>& before_next_pass = {});

}  // namespace sylvomex
