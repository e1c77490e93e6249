// SPDX-License-Identifier: MIT
// Raster files from the triangulated models.
#pragma once

namespace sylvomex {

struct Workspace;

void Create_raster_CHM_from_TIN_CHM(Workspace& w);
void Create_raster_DEM_from_TIN_DEM(Workspace& w);
void TIN2RASTER_Fast(Workspace& w);

}  // namespace sylvomex
