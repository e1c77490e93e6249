// SPDX-License-Identifier: MIT
// The camera services by image index. An index outside the block is a
// RunTimeError(SubscriptOutOfRange). Frames and units: solver/camera_model.h.
#pragma once

#include "state/workspace.h"

namespace sylvomex {

void Build_Rotation_Matrix(Workspace& w, int image);
void Image_To_Pixel(const Workspace& w, int image, double x, double y, double& col, double& row);
void Pixel_To_Image(const Workspace& w, int image, double col, double row, double& x, double& y);
void Object_To_Image(const Workspace& w, int image, double X, double Y, double Z, double& x,
                     double& y);
void Object_To_Pixel(const Workspace& w, int image, double X, double Y, double Z, double& col,
                     double& row);
void Image_To_Object_At_Z(const Workspace& w, int image, double Z, double x, double y, double& X,
                          double& Y);

/// Degrees; a view without a valid solution leaves the outputs as they were.
void Get_View_Angles(const Workspace& w, int image, double& off_nadir, double& azimuth_difference,
                     double& ray_azimuth);

/// Metres; -99 without a loaded model, 0 outside it.
inline double Get_Raster_Elevation(const Workspace& w, double X, double Y) {
  return w.RasterDemLoaded ? Raster_Height(w.RasterDem, X, Y) : -99.0;
}

/// Metres; 0 outside the model or without one.
inline double Get_Raster_Chm_Elevation(const Workspace& w, double X, double Y) {
  return Raster_Height(w.RasterChm, X, Y);
}

}  // namespace sylvomex
