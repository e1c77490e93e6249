// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

void Orto(Workspace& w);  // an orthoimage of one image over the raster height model

}  // namespace sylvomex
