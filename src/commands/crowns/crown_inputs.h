// SPDX-License-Identifier: MIT
// What the crown commands take from the block: species, lidar echoes, the seed's colour.
#pragma once

#include <functional>
#include <string_view>

#include "crowns/crown_echoes.h"
#include "platform/point3d.h"
#include "state/crown_state.h"

namespace sylvomex {

struct Workspace;

/// 1 to 4 for the last ticked box of Check2(0) to Check2(3), 0 when none is ticked.
int Get_Species(const Workspace& w);

/// Mean of 3 by 3 pixels of the image's raw file around the object point, channels in the order
/// of the file; black where they do not all lie in the raster. RunTimeError(SubscriptOutOfRange)
/// when the block has no such image, those of the file layer for its raw file.
SeedColour Sample_Crown_Colour(const Workspace& w, int image, const Point3D& point);

/// Whether an echo belongs to the area, by its place, metres.
using EchoFilter = std::function<bool(double X, double Y)>;

/// The echoes of w.LidarPulses, pulse by pulse and slot by slot, into w.LidarPoints; with the
/// elevation of the ground under them. RunTimeError(SubscriptOutOfRange) naming bound, pulse and
/// place for more than one and a half echoes a pulse.
std::vector<GroundedEcho> Gather_Echoes(Workspace& w, const EchoFilter& is_inside);

/// Told in the status line: by height above the ground.
CrownEchoes Sort_Echoes(Workspace& w, std::vector<GroundedEcho> echoes);

}  // namespace sylvomex
