// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Correlates the template of each ticked image over a patch of that image around the plot
/// centre; the panes then show the correlation images.
void Compute_Correlation_Images(Workspace& w);

}  // namespace sylvomex
