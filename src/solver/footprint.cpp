// SPDX-License-Identifier: MIT
#include "solver/footprint.h"

#include <cmath>

namespace sylvomex {

std::optional<Footprint> Footprint_At(const Camera& camera, const FlightImage& image, double Z) {
  const auto centre = Image_To_Object_At_Z(camera, Z, {0, 0});
  if (!centre) return std::nullopt;
  const double cosine = std::cos(image.angle);
  const double sine = std::sin(image.angle);
  const auto corner = [&](double along, double across) -> Point3D {
    return {centre->X + along * cosine - across * sine, centre->Y + along * sine + across * cosine,
            Z};
  };
  const double length = image.half_length, width = image.half_width;
  return Footprint{*centre,
                   {corner(-length, -width), corner(length, -width), corner(length, width),
                    corner(-length, width)}};
}

}  // namespace sylvomex
