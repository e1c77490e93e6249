// SPDX-License-Identifier: MIT
// Lines in the anaglyph picture: for each eye in the colour that its glass lets through.
#pragma once

#include <span>
#include <vector>

#include "panes/pane_drawing.h"
#include "state/picture.h"
#include "stereo/stereo_view.h"

namespace sylvomex {

inline constexpr Colour kLeftColour = kRed;
inline constexpr Colour kRightColour{0, 255, 255};

enum class StereoStyle {
  Copied = 1,  // covers the picture
  Masked = 2,  // common bits of pen and picture
  Marked = 3,  // their inverse, two pixels wide: the floating mark and model lines
};

/// Lines from point to point: all of the left image, then all of the right one.
std::vector<Mark> Stereo_Lines(std::span<const StereoPosition> points, StereoStyle style);

/// An upright cross over each image of a point. reach: half its size, pixels.
std::vector<Mark> Stereo_Cross(const StereoPosition& at, double reach, StereoStyle style);

/// Draws the floating mark at the mark's position in both images, replacing the previous one.
void Draw_Floating_Mark(Workspace& w);

}  // namespace sylvomex
