// SPDX-License-Identifier: MIT
// A normal-case stereo pair: two images re-projected onto one plane parallel to their base, so
// that the images of a point lie on one row (Kraus, Photogrammetry (2007), section 6.8.5).
//
// Normal plane: xn, yn in metres, the unit of the principal distance; raster column
// (xn - Xmin) / PixelWidth to the right, row (Ymax - yn) / PixelWidth downward, both from 0.
#pragma once

#include <cstdint>
#include <string>

#include "platform/point3d.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// One side of a pair. The matrices turn object-space differences (rotation) and directions of
/// the normal frame (normal) into camera axes.
struct StereoImage {
  std::string raster;  // full name of the normalised raster
  Point3D centre;      // projection centre, metres
  RotationMatrix rotation;
  RotationMatrix normal;
  double c = 0;                                           // principal distance, metres
  double A1 = 0, A2 = 0, A0 = 0, B1 = 0, B2 = 0, B0 = 0;  // film to pixels of the source image
};

struct StereoPair {
  StereoImage left, right;
  std::int32_t ColorMode = 0;  // 1 three bytes a pixel, else one
  double Xmin = 0;             // of column 0, metres
  double Ymax = 0;             // of row 0, metres
  double PixelWidth = 0;       // metres
  std::int16_t NormalWidth = 0;
  std::int16_t NormalHeight = 0;
  Point3D start;  // where a viewer begins, metres
};

}  // namespace sylvomex
