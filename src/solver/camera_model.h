// SPDX-License-Identifier: MIT
// The strictly central-perspective camera of a frame photograph.
//
// Object X east, Y north, Z up, metres, right-handed. Film x, y and the principal distance c in
// metres; the camera looks along -z. Full-image col to the right, row from the bottom.
// A division by zero that a formula does not guard is a RunTimeError(DivisionByZero), an overflow
// of finite inputs a RunTimeError(Overflow); both name the image. NaN inputs give NaN results.
// Formulas: Kraus, Photogrammetry (2007), section 2.1.3 (collinearity); Wolf and Dewitt, Elements
// of Photogrammetry (2000), appendix C (sequential omega, phi, kappa) and D.
#pragma once

#include <cstdint>
#include <optional>

#include "imageblock/image_record.h"
#include "imageblock/pixel_position.h"
#include "platform/point3d.h"

namespace sylvomex {

struct RotationMatrix {
  double m11 = 0, m12 = 0, m13 = 0;
  double m21 = 0, m22 = 0, m23 = 0;
  double m31 = 0, m32 = 0, m33 = 0;
};

/// Rotation about X by omega, then about Y by phi, then about Z by kappa (radians); it transforms
/// object-space differences to camera axes.
RotationMatrix Build_Rotation_Matrix(double omega, double phi, double kappa);

/// A film position in metres from the principal point.
struct FilmPosition {
  double x = 0, y = 0;
};

/// One oriented frame camera as a value: what a projection needs from an image's header, and what
/// is derived from it once.
struct Camera {
  std::int32_t image_id = 0;  // named in messages
  double c = 0;               // principal distance, metres
  Point3D centre;             // projection centre, metres
  RotationMatrix m;           // rotation of object-space differences to camera axes
  double A1 = 0, A2 = 0, A0 = 0, B1 = 0, B2 = 0, B0 = 0;  // film to pixels (affine)
  double affine_determinant = 0;                          // A1 B2 - A2 B1
};

Camera Make_Camera(const ImageRecord& image, const RotationMatrix& m);

/// Uses the rotation by the header's own angles.
Camera Make_Camera(const ImageRecord& image);

/// An object point relative to the projection centre, metres along the film's x axis, its y axis
/// and opposite to the viewing direction.
struct CameraAxes {
  double r = 0, s = 0, q = 0;
};
CameraAxes To_Camera_Axes(const Camera& camera, const Point3D& point);

/// Collinearity equations. std::nullopt when the point lies in the plane of the projection centre
/// parallel to the film, or c is 0.
std::optional<FilmPosition> Object_To_Image(const Camera& camera, const Point3D& point);

/// Object_To_Image for callers that need a value in any case: a point without a film position gets
/// (-1, 0), far outside every frame.
FilmPosition Film_Of_Point(const Camera& camera, const Point3D& point);

/// Film_Of_Point followed by Image_To_Pixel.
PixelPosition Object_To_Pixel(const Camera& camera, const Point3D& point);

/// Intersection of the ray through a film position with the horizontal plane at Z; std::nullopt
/// when the ray is parallel to the plane.
std::optional<Point3D> Image_To_Object_At_Z(const Camera& camera, double Z,
                                            const FilmPosition& film);

/// col = A1 x + A2 y + A0, row = B1 x + B2 y + B0.
PixelPosition Image_To_Pixel(const Camera& camera, const FilmPosition& film);

/// The exact inverse. A singular affine transform is a RunTimeError(DivisionByZero).
FilmPosition Pixel_To_Image(const Camera& camera, const PixelPosition& pixel);

/// The n of the scale 1 : n at elevation Z, (Z0 - Z) / c. A principal distance of 0 is a
/// RunTimeError(DivisionByZero).
double Scale_Number(const Camera& camera, double Z);

/// One image's rows of A d = l: coefficients of X (1), Y (2), Z (3) for film x and y, and the
/// misclosures, computed minus measured. A point in the plane of the projection centre is a
/// RunTimeError(DivisionByZero).
struct CollinearityPartials {
  double ax1 = 0, ay1 = 0, ax2 = 0, ay2 = 0, ax3 = 0, ay3 = 0;
  double lx = 0, ly = 0;
};
CollinearityPartials Collinearity_Partials(const Camera& camera, const Point3D& point,
                                           const FilmPosition& measured);

/// Plane-to-plane transform of normalised images: projects a film position at distance z onto a
/// film rotated by r at distance c; r holds R(row, column) at r[row-1][column-1]. A ray parallel to
/// the new plane is a RunTimeError(DivisionByZero).
FilmPosition Rotate_And_Project(const FilmPosition& film, double z, double c,
                                const double (&r)[3][3]);

}  // namespace sylvomex
