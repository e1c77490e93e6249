// SPDX-License-Identifier: MIT
// Between film, object space and the normal plane of one side of a pair (stereo_pair.h).
// A ray parallel to a plane that it should meet is a RunTimeError(DivisionByZero).
#pragma once

#include <optional>

#include "stereo/stereo_pair.h"

namespace sylvomex {

/// A position on the normal plane, metres.
struct NormalPosition {
  double xn = 0, yn = 0;
};

/// Column and row of a normalised raster, from 0 at its upper left pixel.
struct RasterPosition {
  double col = 0, row = 0;
};

NormalPosition Film_To_Normal(const StereoImage& side, const FilmPosition& film);
FilmPosition Normal_To_Film(const StereoImage& side, const NormalPosition& at);

/// Collinearity, then the turn into the normal frame.
NormalPosition Object_To_Normal(const StereoImage& side, const Point3D& point);

/// The ray through a position cut with the horizontal plane at Z; nothing for a horizontal ray.
std::optional<Point3D> Normal_To_Object_At_Z(const StereoImage& side, const NormalPosition& at,
                                             double Z);

RasterPosition Normal_To_Raster(const StereoPair& pair, const NormalPosition& at);

}  // namespace sylvomex
