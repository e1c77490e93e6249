// SPDX-License-Identifier: MIT
#pragma once

#include "closedlib/back_projection.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// A camera with the patch of its correlation image, as the back-projection takes them. first: the
/// full-image position of the patch's upper left pixel.
PatchProjection Make_Patch_Projection(const Camera& camera, const PixelPosition& first);

}  // namespace sylvomex
