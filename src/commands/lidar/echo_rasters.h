// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Rasters of the mean and the lowest height of the last echoes, from 2004 tiles.
void Create_CHM_from_ALS(Workspace& w);

}  // namespace sylvomex
