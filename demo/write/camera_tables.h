// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// Camera table of the aerial archive: the site's photographs, which all show the forest, and
/// three of other flights that do not. Twelve items per line: id, camera number, principal
/// distance, omega, phi, kappa, X0, Y0, Z0, second name part, header, first name part.
std::string Aerial_Camera_Table(const std::vector<Photograph>& photos);

/// The same for the photographs from within the stand, followed by a camera that no search
/// considers.
std::string Stand_Camera_Table(const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
