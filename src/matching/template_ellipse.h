// SPDX-License-Identifier: MIT
// The outline of a crown in one image: an ellipse whose long axis lies along the radial direction,
// the line from the nadir point to the tree top, along which a central perspective displaces
// heights (Kraus, Photogrammetry (2007), section 2.1.3). Film x, y and object X, Y, Z in metres.
#pragma once

#include <vector>

#include "matching/template_record.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// The ellipse of a crown with its top at the given point. A shift of half a pixel or less keeps
/// the value in previous. RunTimeError(Overflow) for a shift beyond 16 bits.
TemplateRecord Ellipse_Of_Crown(const Camera& camera, const Point3D& top,
                                const TemplateParameters& crown, const TemplateRecord& previous);

/// 126 points of the ellipse around a centre, by its parameter angle in steps of 0.05 radians.
std::vector<FilmPosition> Ellipse_Outline(const TemplateRecord& ellipse, FilmPosition centre);

}  // namespace sylvomex
