// SPDX-License-Identifier: MIT
// Crowns on the panes.
#pragma once

#include "crowns/crown_rings.h"
#include "platform/colour.h"

namespace sylvomex {

struct Workspace;

/// Colours of species 0 to 4.
Colour Echo_Colour(int species);
Colour Ring_Colour(int species);

/// Red that turns from white with the depth, metres.
Colour Depth_Colour(double depth);

/// The dashes of the ring at a depth that face each image's camera; then events are serviced.
void Draw_Ring(Workspace& w, const CrownRecord& crown, double depth, Colour colour, int width);

}  // namespace sylvomex
