// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "interchange/site_survey.h"

namespace sylvomex {

/// What a site holds as a map, SVG, north up, with round world coordinates at its edges and a scale
/// bar. Empty where there is nothing to draw.
std::string Survey_Map(const SiteSurvey& survey);

/// A text as it may stand in a page.
std::string Escaped_For_Page(const std::string& text);

}  // namespace sylvomex
