// SPDX-License-Identifier: MIT
// The picture of the anaglyph viewer around its mark.
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Centres both windows of a state on its mark, composes the picture, writes its file, shows it and
/// makes the state the current one. A failure leaves the current state and its picture unchanged.
/// RunTimeErrors for rasters that are missing or shorter than the pair says.
void Recentre(Workspace& w, StereoState next);

/// The same for the pair that is open, with the mark at a point.
void Recentre_At(Workspace& w, const Point3D& mark);

/// Shows the mark's coordinates.
void Show_Mark(Workspace& w);

/// RunTimeError(BadContent) while no pair is open.
void Require_Open_Pair(const Workspace& w);

}  // namespace sylvomex
