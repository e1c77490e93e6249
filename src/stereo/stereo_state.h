// SPDX-License-Identifier: MIT
// What the anaglyph viewer holds of the pair that it shows.
//
// Picture: px to the right, py downward, in pixels from its upper left corner. Rows and columns of
// the normalised rasters as in stereo_pair.h.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/table.h"
#include "stereo/stereo_pair.h"

namespace sylvomex {

/// What is cut from a raster for the picture; may reach beyond the raster.
struct StereoWindow {
  std::int32_t first_row = 0, first_col = 0;
  std::int32_t last_row = 0, last_col = 0;
};

struct StereoState {
  StereoPair Pair;
  bool PairOpen = false;
  Point3D StereoSolution;                          // the mark, metres
  Point3D Anchor;                                  // the mark at the last recentring
  std::int16_t StereoWidth = 0, StereoHeight = 0;  // of the picture, pixels
  double OriginLeftX = 0, OriginLeftY = 0;  // of the picture's corner on the normal plane, metres
  double OriginRightX = 0, OriginRightY = 0;
  StereoWindow WindowLeft, WindowRight;
  std::int16_t LeftRow = 0, LeftCol = 0;  // of the mark in each raster
  std::int16_t RightRow = 0, RightCol = 0;
  Table<std::int16_t, 0, 3> Parallax;   // of the mark from the first row and column of the left
                                        // window, then of the right one
  std::vector<Point3D> MeasuredPoints;  // in the order of measuring
};

template <class Visitor>
void Visit_Stereo_State(const StereoState& state, Visitor&& visit) {
  const auto limits = [](const StereoWindow& window) {
    Table<std::int32_t, 0, 3> values;
    values(0) = window.first_row;
    values(1) = window.first_col;
    values(2) = window.last_row;
    values(3) = window.last_col;
    return values;
  };
  visit("PairOpen", state.PairOpen);
  visit("StereoX", state.StereoSolution.X);
  visit("StereoY", state.StereoSolution.Y);
  visit("StereoZ", state.StereoSolution.Z);
  visit("AnchorX", state.Anchor.X);
  visit("AnchorY", state.Anchor.Y);
  visit("AnchorZ", state.Anchor.Z);
  visit("StartX", state.Pair.start.X);
  visit("StartY", state.Pair.start.Y);
  visit("StartZ", state.Pair.start.Z);
  visit("StereoWidth", state.StereoWidth);
  visit("StereoHeight", state.StereoHeight);
  visit("OriginLeftX", state.OriginLeftX);
  visit("OriginLeftY", state.OriginLeftY);
  visit("OriginRightX", state.OriginRightX);
  visit("OriginRightY", state.OriginRightY);
  visit("WindowLeft", limits(state.WindowLeft));
  visit("WindowRight", limits(state.WindowRight));
  visit("LeftRow", state.LeftRow);
  visit("LeftCol", state.LeftCol);
  visit("RightRow", state.RightRow);
  visit("RightCol", state.RightCol);
  visit("Parallax", state.Parallax);
  visit("Xmin", state.Pair.Xmin);
  visit("Ymax", state.Pair.Ymax);
  visit("PixelWidth", state.Pair.PixelWidth);
  visit("NormalWidth", state.Pair.NormalWidth);
  visit("NormalHeight", state.Pair.NormalHeight);
}

}  // namespace sylvomex
