// SPDX-License-Identifier: MIT
// Camera access by image index. An index outside the block is a RunTimeError(SubscriptOutOfRange).
// Frames and units: solver/camera_model.h.
#pragma once

#include <optional>

#include "solver/ray_angles.h"
#include "state/workspace.h"

namespace sylvomex {

void Build_Rotation_Matrix(Workspace& w, int image);

/// The image's camera with its rotation from the RotationTable. Loops over many points call it
/// once.
inline Camera Camera_Of(const Workspace& w, int image) {
  return Make_Camera(w.ImageBlock(image), w.RotationTable(image));
}

inline PixelPosition Object_To_Pixel(const Workspace& w, int image, const Point3D& point) {
  return Object_To_Pixel(Camera_Of(w, image), point);
}

inline PixelPosition Image_To_Pixel(const Workspace& w, int image, const FilmPosition& film) {
  return Image_To_Pixel(Camera_Of(w, image), film);
}

inline FilmPosition Pixel_To_Image(const Workspace& w, int image, const PixelPosition& pixel) {
  return Pixel_To_Image(Camera_Of(w, image), pixel);
}

inline std::optional<Point3D> Image_To_Object_At_Z(const Workspace& w, int image, double Z,
                                                   const FilmPosition& film) {
  return Image_To_Object_At_Z(Camera_Of(w, image), Z, film);
}

/// The angles at the solution; std::nullopt without a valid solution, even for a bad index.
std::optional<ViewAngles> Get_View_Angles(const Workspace& w, int image);

/// Metres; -99 without a loaded model, 0 outside it.
inline double Get_Raster_Elevation(const Workspace& w, double X, double Y) {
  return w.RasterDemLoaded ? Raster_Height(w.RasterDem, X, Y) : -99.0;
}

/// Metres; 0 outside the model or without one.
inline double Get_Raster_Chm_Elevation(const Workspace& w, double X, double Y) {
  return Raster_Height(w.RasterChm, X, Y);
}

}  // namespace sylvomex
