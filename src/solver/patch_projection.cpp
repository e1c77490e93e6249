// SPDX-License-Identifier: MIT
#include "solver/patch_projection.h"

namespace sylvomex {

PatchProjection Make_Patch_Projection(const Camera& camera, const PixelPosition& first) {
  const RotationMatrix& m = camera.m;
  PatchProjection projection;
  projection.m = {m.m11, m.m12, m.m13, m.m21, m.m22, m.m23, m.m31, m.m32, m.m33};
  projection.X0 = camera.centre.X;
  projection.Y0 = camera.centre.Y;
  projection.Z0 = camera.centre.Z;
  projection.c = camera.c;
  projection.affine = {camera.A1, camera.A2, camera.A0, camera.B1, camera.B2, camera.B0};
  projection.col_origin = first.col;
  projection.row_origin = first.row;
  return projection;
}

}  // namespace sylvomex
