// SPDX-License-Identifier: MIT
// Object point from two or more film observations by iterated least squares (Gauss-Newton on
// the collinearity equations; Mikhail, Bethel and McGlone 2001, section 4.4). Coordinates have
// equal weights; two images leave one degree of freedom. Nearly parallel rays give a useless
// point with large standard deviations: only an exactly singular pass is rejected.
#pragma once

#include <functional>
#include <span>

#include "platform/point3d.h"
#include "solver/camera_model.h"

namespace sylvomex {

struct FilmObservation {
  Camera camera;
  FilmPosition film;
};

struct IntersectionSettings {
  double stop_dx = 0.03;  // metres; the iteration ends below all three limits
  double stop_dy = 0.03;
  double stop_dz = 0.03;
  int max_passes = 100;
};

struct IntersectionResult {
  bool singular = false;  // |det N| < 1e-200 in some pass: point is the working point of that
                          // pass, the corrections and cofactors are those of the pass before
                          // (0 in the first), RMSE and standard deviations are 0
  int passes = 0;         // passes begun, the singular one included
  Point3D point;          // metres
  double rmse_um = 0;     // micrometres, from the sum of squares of the last pass / (2n - 3)
  double std_x = 0;       // metres
  double std_y = 0;
  double std_z = 0;
  double last_dx = 0;  // corrections of the last pass, metres
  double last_dy = 0;
  double last_dz = 0;
  double q11 = 0;  // diagonal of the inverse normal matrix of the last pass, for X, Y, Z
  double q22 = 0;
  double q33 = 0;
};

/// Returns the observations for the pass that begins, the same number at each call; the span must
/// stay valid until the next call.
using ObservationSource = std::function<std::span<const FilmObservation>()>;

/// take_observations: called at the start of each pass; it returns 2 to 9 observations (above 9
/// RunTimeError(SubscriptOutOfRange)), and its exceptions propagate. start: first approximation,
/// used unchanged. A pass whose correction in X is exactly 0 counts as not converged. At the
/// pass limit the last corrections are applied twice. before_next_pass is called after each pass
/// whose corrections require another one, including the last one allowed; it may change the
/// settings, which every test reads again. NaN or infinite observations end the iteration and
/// are visible in the result; RunTimeErrors of Collinearity_Partials propagate.
IntersectionResult Intersect_Rays(const ObservationSource& take_observations, const Point3D& start,
                                  const IntersectionSettings& settings,
                                  const std::function<void()>& before_next_pass = {});

/// The same for observations that do not change between passes.
IntersectionResult Intersect_Rays(std::span<const FilmObservation> observations,
                                  const Point3D& start, const IntersectionSettings& settings,
                                  const std::function<void()>& before_next_pass = {});

}  // namespace sylvomex
