// SPDX-License-Identifier: MIT
// The picture of the anaglyph viewer around its mark.
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Takes a state over with both windows centred on its mark: composes the picture, writes its file
/// and shows it. Whatever fails leaves the present state and its picture alone. RunTimeErrors for
/// rasters that are missing or shorter than the pair says.
void Recentre(Workspace& w, StereoState next);

/// The same for the pair that is open, with the mark at a point.
void Recentre_At(Workspace& w, const Point3D& mark);

/// Shows the mark's coordinates.
void Show_Mark(Workspace& w);

/// RunTimeError(BadContent) while no pair is open.
void Require_Open_Pair(const Workspace& w);

}  // namespace sylvomex
