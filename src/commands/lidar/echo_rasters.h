// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Rasters of the mean and the least height of the last echoes, from 2004 tiles.
void Create_CHM_from_ALS(Workspace& w);

}  // namespace sylvomex
