// SPDX-License-Identifier: MIT
// Heights of the triangulated terrain model at the points of a text file.
#pragma once

namespace sylvomex {

struct Workspace;

void Get_TIN_for_Points(Workspace& w);
void Get_Raster_and_TIN_Residuals(Workspace& w);

}  // namespace sylvomex
