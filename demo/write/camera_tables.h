// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// Camera table of the aerial archive: the site's photographs, which all see the forest, and
/// three of other flights that do not. Twelve items a line: id, camera number, principal
/// distance, omega, phi, kappa, X0, Y0, Z0, second name part, header, first name part.
std::string Aerial_Camera_Table(const std::vector<Photograph>& photos);

/// The same of the photographs from within the stand, with a line of another camera behind them
/// that no search considers.
std::string Stand_Camera_Table(const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
