// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "solver/camera_model.h"
#include "surfaces/search_settings.h"

namespace sylvomex {

/// The places of a grid in the order of the scan, film metres. scale_number: metres on the ground
/// for a metre of film, (Z0 - Z) / c at the start height. Coordinates add up step by step.
/// RunTimeError(BadContent) for a scale that is not positive, and for a start so far out that
/// doubles cannot tell its grid lines apart.
std::vector<FilmPosition> Grid_Positions(const GridSettings& grid, const FilmPosition& start,
                                         double scale_number);

}  // namespace sylvomex
