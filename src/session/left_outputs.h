// SPDX-License-Identifier: MIT
// The camera services as scripts call them: with in-out arguments, which keep all or part of their
// incoming values when there is no result.
#pragma once

#include "state/camera_access.h"

namespace sylvomex {

/// Collinearity. A point without a film position sets x to -1 if the incoming y is 0, else to 0; y
/// stays unchanged.
void Object_To_Image(const Camera& camera, const Point3D& point, FilmPosition& film);

/// The ground position of a film position at height Z; unchanged for a ray parallel to the plane.
void Image_To_Object_At_Z(const Camera& camera, double Z, const FilmPosition& film,
                          Point3D& ground);

/// The angles at the solution; unchanged without a valid solution.
void Get_View_Angles(const Workspace& w, int image, ViewAngles& angles);

}  // namespace sylvomex
