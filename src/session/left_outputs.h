// SPDX-License-Identifier: MIT
// The camera services as scripts call them: each receives its outputs as they came in, and one
// without a result leaves them or a part of them so.
#pragma once

#include "state/camera_access.h"

namespace sylvomex {

/// Collinearity. A point without a film position sets x to -1 if the incoming y is 0, else to 0,
/// and leaves y.
void Object_To_Image(const Camera& camera, const Point3D& point, FilmPosition& film);

/// The ground position of a film position at height Z; a ray parallel to the plane leaves it.
void Image_To_Object_At_Z(const Camera& camera, double Z, const FilmPosition& film,
                          Point3D& ground);

/// The angles at the solution, which stay without a valid one.
void Get_View_Angles(const Workspace& w, int image, ViewAngles& angles);

}  // namespace sylvomex
