// SPDX-License-Identifier: MIT
#include "stereo/normal_plane.h"

#include "platform/checked_arithmetic.h"

namespace sylvomex {
namespace {

constexpr const char* kParallelToFilm = "a ray is parallel to the film";

Camera Camera_Of_Side(const StereoImage& side) {
  Camera camera;
  camera.c = side.c;
  camera.centre = side.centre;
  camera.m = side.rotation;
  return camera;
}

}  // namespace

NormalPosition Film_To_Normal(const StereoImage& side, const FilmPosition& film) {
  const RotationMatrix& n = side.normal;
  // The inverse of the normal matrix is its transpose.
  const double to_normal[3][3] = {
      {n.m11, n.m21, n.m31}, {n.m12, n.m22, n.m32}, {n.m13, n.m23, n.m33}};
  const FilmPosition at = Rotate_And_Project(film, side.c, side.c, to_normal);
  return {at.x, at.y};
}

FilmPosition Normal_To_Film(const StereoImage& side, const NormalPosition& at) {
  const RotationMatrix& n = side.normal;
  const double c = side.c;
  const double w = n.m31 * at.xn + n.m32 * at.yn - n.m33 * c;
  return {Quotient((-c) * (n.m11 * at.xn + n.m12 * at.yn - n.m13 * c), w, kParallelToFilm),
          Quotient((-c) * (n.m21 * at.xn + n.m22 * at.yn - n.m23 * c), w, kParallelToFilm)};
}

NormalPosition Object_To_Normal(const StereoImage& side, const Point3D& point) {
  const std::optional<FilmPosition> film = Object_To_Image(Camera_Of_Side(side), point);
  if (!film) throw RunTimeError(Failure::DivisionByZero, kParallelToFilm);
  return Film_To_Normal(side, *film);
}

std::optional<Point3D> Normal_To_Object_At_Z(const StereoImage& side, const NormalPosition& at,
                                             double Z) {
  return Image_To_Object_At_Z(Camera_Of_Side(side), Z, Normal_To_Film(side, at));
}

RasterPosition Normal_To_Raster(const StereoPair& pair, const NormalPosition& at) {
  constexpr const char* kNoPixel = "the pixel size of the stereo pair is 0";
  return {Quotient(at.xn - pair.Xmin, pair.PixelWidth, kNoPixel),
          Quotient(pair.Ymax - at.yn, pair.PixelWidth, kNoPixel)};
}

}  // namespace sylvomex
