// SPDX-License-Identifier: MIT
// Loading and showing the raster height models.
#pragma once

namespace sylvomex {

struct Workspace;

void Add_height_Model(Workspace& w);
void Add_Raster_CHM(Workspace& w);
void Get_elevation(Workspace& w);
void Get_Raster_CHM_Elevation(Workspace& w);

}  // namespace sylvomex
