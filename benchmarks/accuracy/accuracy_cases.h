// SPDX-License-Identifier: MIT
// The stands and photographs used to evaluate the search for tree tops.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/site_settings.h"

namespace sylvomex::demo {

struct AccuracyCase {
  std::string name;
  SiteSettings settings;  // its seed is the first of the case
};

/// Four cases: the demo site's own stand, and one change each of density, species mix and image.
std::vector<AccuracyCase> Short_Case_List();

/// The short list and further steps of density, species, sun and noise.
std::vector<AccuracyCase> Long_Case_List();

}  // namespace sylvomex::demo
