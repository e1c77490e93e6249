// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Writes a mask of the circular zones of a file for each image, "d:\" with the ImageId and
/// "_Zonal.raw", and leaves the last circle's centre as the solution.
void Create_Zonal(Workspace& w);

}  // namespace sylvomex
