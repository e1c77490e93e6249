// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// Stem volume over bark, litres, from the diameter at breast height (millimetres) and the
/// height of the tree (metres): species 1 pine, 2 spruce, any other birch. Laasasenaho (1982),
/// Taper curve and volume functions for pine, spruce and birch, Communicationes Instituti
/// Forestalis Fenniae 108, volume functions of diameter and height.
///
/// Defined for heights above breast height, 1.3 m, and diameters of 0 or more:
/// RunTimeError(Overflow) naming the two values where the result is not finite.
double Stem_Volume(std::int32_t species, double dbh, double height);

/// The factors of the volume that depend on the diameter; not finite where no volume is defined.
double Diameter_Share(std::int32_t species, double dbh);

}  // namespace sylvomex
