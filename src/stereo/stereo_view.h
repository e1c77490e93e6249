// SPDX-License-Identifier: MIT
// Between object space and the picture of the anaglyph viewer. A ray parallel to a plane that it
// should meet is a RunTimeError(DivisionByZero).
#pragma once

#include <optional>

#include "imageblock/pane_view.h"
#include "stereo/stereo_state.h"

namespace sylvomex {

/// The size of the picture in a window of that client size: 50 pixels less in width, in steps of 4
/// so that a bitmap's row of 3 bytes a pixel ends on a 4-byte boundary; below the mark's line in
/// height, in steps of 2 so that the mark stands on a pixel. At least one step.
/// RunTimeError(Overflow) beyond 16 bits.
void Set_Picture_Size(StereoState& state, double client_width, double client_height);

/// Brings the mark to the middle of both windows and makes it the anchor. RunTimeError(Overflow)
/// for a mark whose row or column leaves 16 bits.
void Center_On_Mark(StereoState& state);

/// Moves the mark and its offsets in the windows, which stay. RunTimeError(Overflow) as above.
void Move_Mark(StereoState& state, const Point3D& to);

/// An object point in the picture, as each eye sees it.
struct StereoPosition {
  PanePosition left, right;
};
StereoPosition Object_To_Picture(const StereoState& state, const Point3D& point);

/// The point on the left image's ray through a position of the picture, at the height of the mark;
/// nothing for a horizontal ray.
std::optional<Point3D> Point_Under_Pointer(const StereoState& state, double px, double py);

}  // namespace sylvomex
