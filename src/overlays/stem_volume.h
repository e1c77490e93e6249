// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// Volume of a stem with bark, litres, from its diameter at breast height (millimetres) and the
/// height of the tree (metres): species 1 pine, 2 spruce, any other birch. Laasasenaho (1982),
/// Taper curve and volume functions for pine, spruce and birch, Communicationes Instituti
/// Forestalis Fenniae 108, volume functions of diameter and height.
///
/// Defined for heights above breast height, 1.3 m, and diameters from 0 up: RunTimeError(Overflow)
/// that names the two values where the result is no finite number.
double Stem_Volume(std::int32_t species, double dbh, double height);

/// The factors of the volume that follow from the diameter; not finite for one that has no volume.
double Diameter_Share(std::int32_t species, double dbh);

}  // namespace sylvomex
