// SPDX-License-Identifier: MIT
#pragma once

#include "closedlib/back_projection.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// A camera combined with the patch of its correlation image, as input of the back-projection.
/// first: full-image position of the patch's upper left pixel.
PatchProjection Make_Patch_Projection(const Camera& camera, const PixelPosition& first);

}  // namespace sylvomex
