// SPDX-License-Identifier: MIT
#include "solver/camera_model.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/checked_arithmetic.h"

namespace sylvomex {
namespace {

std::string About_Image(std::int32_t image_id, const char* fact) {
  return "image " + std::to_string(image_id) + ": " + fact;
}

/// Throws when finite inputs overflowed to results that are not finite.
template <std::size_t N, class... Inputs>
void Require_Finite(std::int32_t image_id, const char* what, const double (&results)[N],
                    Inputs... inputs) {
  if (std::ranges::all_of(results, [](double r) { return std::isfinite(r); })) return;
  if ((std::isfinite(inputs) && ...)) {
    throw RunTimeError(Failure::Overflow, About_Image(image_id, what) + " is out of range");
  }
}

}  // namespace

RotationMatrix Build_Rotation_Matrix(double omega, double phi, double kappa) {
  const double sin_w = std::sin(omega), cos_w = std::cos(omega);
  const double sin_p = std::sin(phi), cos_p = std::cos(phi);
  const double sin_k = std::sin(kappa), cos_k = std::cos(kappa);
  RotationMatrix m;
  m.m11 = cos_k * cos_p;
  m.m12 = cos_w * sin_k + sin_w * sin_p * cos_k;
  m.m13 = sin_w * sin_k - cos_w * sin_p * cos_k;
  m.m21 = -cos_p * sin_k;
  m.m22 = cos_w * cos_k - sin_w * sin_p * sin_k;
  m.m23 = sin_w * cos_k + cos_w * sin_p * sin_k;
  m.m31 = sin_p;
  m.m32 = -sin_w * cos_p;
  m.m33 = cos_w * cos_p;
  return m;
}

Camera Make_Camera(const ImageRecord& image, const RotationMatrix& m) {
  Camera camera;
  camera.image_id = image.ImageId;
  camera.c = image.PrincipalDistance;
  camera.centre = {image.X0, image.Y0, image.Z0};
  camera.m = m;
  camera.A1 = image.AffineA1;
  camera.A2 = image.AffineA2;
  camera.A0 = image.AffineA0;
  camera.B1 = image.AffineB1;
  camera.B2 = image.AffineB2;
  camera.B0 = image.AffineB0;
  camera.affine_determinant = camera.A1 * camera.B2 - camera.A2 * camera.B1;
  return camera;
}

Camera Make_Camera(const ImageRecord& image) {
  return Make_Camera(image, Build_Rotation_Matrix(image.Omega, image.Phi, image.Kappa));
}

CameraAxes To_Camera_Axes(const Camera& camera, const Point3D& point) {
  const RotationMatrix& m = camera.m;
  const double dX = point.X - camera.centre.X;
  const double dY = point.Y - camera.centre.Y;
  const double dZ = point.Z - camera.centre.Z;
  return {m.m11 * dX + m.m12 * dY + m.m13 * dZ, m.m21 * dX + m.m22 * dY + m.m23 * dZ,
          m.m31 * dX + m.m32 * dY + m.m33 * dZ};
}

std::optional<FilmPosition> Object_To_Image(const Camera& camera, const Point3D& point) {
  const CameraAxes axes = To_Camera_Axes(camera, point);
  if (camera.c == 0 || axes.q == 0) return std::nullopt;
  const FilmPosition film{(-camera.c) * axes.r / axes.q, (-camera.c) * axes.s / axes.q};
  Require_Finite(camera.image_id, "the film position of an object point", {axes.q, film.x, film.y},
                 point.X, point.Y, point.Z);
  return film;
}

FilmPosition Film_Of_Point(const Camera& camera, const Point3D& point) {
  return Object_To_Image(camera, point).value_or(FilmPosition{-1, 0});
}

PixelPosition Object_To_Pixel(const Camera& camera, const Point3D& point) {
  return Image_To_Pixel(camera, Film_Of_Point(camera, point));
}

std::optional<Point3D> Image_To_Object_At_Z(const Camera& camera, double Z,
                                            const FilmPosition& film) {
  const RotationMatrix& m = camera.m;
  const double t = -camera.c;
  const double q = m.m13 * film.x + m.m23 * film.y + m.m33 * t;
  if (q == 0) return std::nullopt;
  const double dZ = Z - camera.centre.Z;
  const double X = camera.centre.X + dZ * (m.m11 * film.x + m.m21 * film.y + m.m31 * t) / q;
  const double Y = camera.centre.Y + dZ * (m.m12 * film.x + m.m22 * film.y + m.m32 * t) / q;
  Require_Finite(camera.image_id, "the ground position", {q, X, Y}, Z, film.x, film.y);
  return Point3D{X, Y, Z};
}

PixelPosition Image_To_Pixel(const Camera& camera, const FilmPosition& film) {
  const PixelPosition pixel{camera.A1 * film.x + camera.A2 * film.y + camera.A0,
                            camera.B1 * film.x + camera.B2 * film.y + camera.B0};
  Require_Finite(camera.image_id, "the pixel position", {pixel.col, pixel.row}, film.x, film.y);
  return pixel;
}

FilmPosition Pixel_To_Image(const Camera& camera, const PixelPosition& pixel) {
  const double d = camera.affine_determinant;
  if (d == 0) {
    throw RunTimeError(Failure::DivisionByZero,
                       About_Image(camera.image_id, "the affine from film to pixels is singular"));
  }
  const double dcol = pixel.col - camera.A0;
  const double drow = pixel.row - camera.B0;
  const FilmPosition film{(camera.B2 * dcol - camera.A2 * drow) / d,
                          (camera.A1 * drow - camera.B1 * dcol) / d};
  Require_Finite(camera.image_id, "the film position of a pixel", {d, film.x, film.y}, pixel.col,
                 pixel.row);
  return film;
}

double Scale_Number(const Camera& camera, double Z) {
  if (camera.c == 0) {
    throw RunTimeError(Failure::DivisionByZero,
                       About_Image(camera.image_id, "no scale with a principal distance of 0"));
  }
  const double scale = (camera.centre.Z - Z) / camera.c;
  Require_Finite(camera.image_id, "the scale number", {scale}, Z);
  return scale;
}

CollinearityPartials Collinearity_Partials(const Camera& camera, const Point3D& point,
                                           const FilmPosition& measured) {
  const auto [r, s, q] = To_Camera_Axes(camera, point);
  const RotationMatrix& m = camera.m;
  const double c = camera.c;
  if (q * q == 0) {
    throw RunTimeError(Failure::DivisionByZero,
                       About_Image(camera.image_id,
                                   "the working point lies in the plane of the projection centre"));
  }
  const double scale = c / (q * q);
  CollinearityPartials p;
  p.ax1 = scale * (m.m11 * q - m.m31 * r);
  p.ay1 = scale * (m.m21 * q - m.m31 * s);
  p.ax2 = scale * (m.m12 * q - m.m32 * r);
  p.ay2 = scale * (m.m22 * q - m.m32 * s);
  p.ax3 = scale * (m.m13 * q - m.m33 * r);
  p.ay3 = scale * (m.m23 * q - m.m33 * s);
  p.lx = (-c) * r / q - measured.x;
  p.ly = (-c) * s / q - measured.y;
  Require_Finite(camera.image_id, "the linearised projection of the working point",
                 {q * q, p.ax1, p.ay1, p.ax2, p.ay2, p.ax3, p.ay3, p.lx, p.ly}, point.X, point.Y,
                 point.Z, measured.x, measured.y);
  return p;
}

FilmPosition Rotate_And_Project(const FilmPosition& film, double z, double c,
                                const double (&r)[3][3]) {
  constexpr const char* kParallel = "a ray is parallel to the plane of the normalised image";
  const auto [x, y] = film;
  const double den = x * r[2][0] + y * r[2][1] - z * r[2][2];
  return {Quotient((-c) * (x * r[0][0] + y * r[0][1] - z * r[0][2]), den, kParallel),
          Quotient((-c) * (x * r[1][0] + y * r[1][1] - z * r[1][2]), den, kParallel)};
}

}  // namespace sylvomex
