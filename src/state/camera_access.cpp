// SPDX-License-Identifier: MIT
#include "state/camera_access.h"

#include "solver/ray_angles.h"

namespace sylvomex {

void Build_Rotation_Matrix(Workspace& w, int image) {
  const ImageRecord& record = w.ImageBlock(image);
  w.RotationTable(image) = Build_Rotation_Matrix(record.Omega, record.Phi, record.Kappa);
}

void Image_To_Pixel(const Workspace& w, int image, double x, double y, double& col, double& row) {
  Image_To_Pixel(w.ImageBlock(image), x, y, col, row);
}

void Pixel_To_Image(const Workspace& w, int image, double col, double row, double& x, double& y) {
  Pixel_To_Image(w.ImageBlock(image), col, row, x, y);
}

void Object_To_Image(const Workspace& w, int image, double X, double Y, double Z, double& x,
                     double& y) {
  Object_To_Image(w.ImageBlock(image), w.RotationTable(image), X, Y, Z, x, y);
}

void Object_To_Pixel(const Workspace& w, int image, double X, double Y, double Z, double& col,
                     double& row) {
  Object_To_Pixel(w.ImageBlock(image), w.RotationTable(image), X, Y, Z, col, row);
}

void Image_To_Object_At_Z(const Workspace& w, int image, double Z, double x, double y, double& X,
                          double& Y) {
  Image_To_Object_At_Z(w.ImageBlock(image), w.RotationTable(image), Z, x, y, X, Y);
}

void Get_View_Angles(const Workspace& w, int image, double& off_nadir, double& azimuth_difference,
                     double& ray_azimuth) {
  if (!w.SolutionValid) return;
  const ViewAngles angles = View_Angles(w.ImageBlock(image), w.RotationTable(image), w.Solution3D);
  off_nadir = angles.off_nadir;
  azimuth_difference = angles.azimuth_difference;
  ray_azimuth = angles.ray_azimuth;
}

}  // namespace sylvomex
