// SPDX-License-Identifier: MIT
// A level pair that hand computation can follow: c = 0.1 m, pixels of 10 micrometres, both centres
// 1000 m above Z = 0, 10 m apart along X. On that plane a pixel is 0.1 m; the left column is
// 200 + 10 (X - 1000), the right one 200 + 10 (X - 1010), the row 150 - 10 (Y - 2000).
#pragma once

#include "stereo/stereo_pair.h"

namespace sylvomex {

inline StereoPair Level_Pair() {
  StereoPair pair;
  pair.left.raster = "c:\\data\\left.raw";
  pair.right.raster = "c:\\data\\right.raw";
  pair.Xmin = -0.002;
  pair.Ymax = 0.0015;
  pair.PixelWidth = 1e-5;
  pair.NormalWidth = 400;
  pair.NormalHeight = 300;
  pair.start = {1005, 2000, 0};
  for (StereoImage* side : {&pair.left, &pair.right}) {
    side->centre = {1000, 2000, 1000};
    side->rotation = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    side->normal = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    side->c = 0.1;
    side->A1 = side->B2 = 1e5;
  }
  pair.right.centre.X = 1010;
  return pair;
}

}  // namespace sylvomex
