// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "interchange/photo_given.h"

namespace sylvomex {

struct PhotoRay {
  const OrientedPhoto* photo = nullptr;
  PhotoPixel real;  // as the real lens shows the point
};

/// The point nearest to the rays in the images: linear equations of the rays' planes, weighted anew
/// by the depths until they are those of image residuals (Hartley and Sturm 1997, Triangulation,
/// section 5.2). std::nullopt for fewer than two rays, parallel rays, and a point behind a camera.
std::optional<Point3D> Nearest_Point(const std::vector<PhotoRay>& rays);

}  // namespace sylvomex
