// SPDX-License-Identifier: MIT
// The species classes of the crown models: 1 to 4 as the operator ticks them, 0 unresolved.
#pragma once

#include "crowns/crown_profile.h"
#include "platform/report.h"
#include "solver/safe_sqrt.h"

namespace sylvomex {

inline constexpr int kSpeciesCount = 4;

/// Start of a fit over an area. A species outside 0 to 4 is a RunTimeError(SubscriptOutOfRange),
/// here and below.
CrownShape Start_Shape(int species);

/// Start of the fit of one tree whose search radius is given, metres.
CrownShape Local_Start_Shape(int species, double search_radius, double height);

/// The crown radius that a tree of this height usually has, times the share of it that is
/// searched around the top; metres. Species 1 to 4.
double Search_Radius(int species, double height);

/// Diameter of the stem at breast height, centimetres, from the diameter of the crown and the
/// height of the tree, metres. Species 1 to 4. Kalliovirta and Tokola (2005), Silva Fennica 39,
/// equations of this form. A negative diameter or height is reported as Safe_Sqrt does.
double Stem_Diameter(int species, double crown_diameter, double height, const Report& report);

}  // namespace sylvomex
