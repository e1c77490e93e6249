// SPDX-License-Identifier: MIT
#include "state/camera_access.h"

namespace sylvomex {

void Build_Rotation_Matrix(Workspace& w, int image) {
  const ImageRecord& record = w.ImageBlock(image);
  w.RotationTable(image) = Build_Rotation_Matrix(record.Omega, record.Phi, record.Kappa);
}

std::optional<ViewAngles> Get_View_Angles(const Workspace& w, int image) {
  if (!w.SolutionValid) return std::nullopt;
  return View_Angles(Camera_Of(w, image), Sun_Of(w.ImageBlock(image)), w.Solution3D);
}

}  // namespace sylvomex
