// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

void Orto(Workspace& w);  // an orthoimage of one image over the raster height model

}  // namespace sylvomex
