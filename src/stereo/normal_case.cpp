// SPDX-License-Identifier: MIT
#include "stereo/normal_case.h"

#include <algorithm>
#include <cmath>

#include "closedlib/arc_tangent.h"
#include "platform/checked_arithmetic.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "stereo/normal_plane.h"

namespace sylvomex {
namespace {

constexpr double kSteepBase = 0.1;  // radians; a larger phi tells nothing of the base
constexpr double kMicrometres = 1e6;

std::int16_t Raster_Side(double length, double pixel_width) {
  const std::int16_t side =
      To_Int16(Quotient(length, pixel_width, "the pixel size of the normalised images is 0"));
  if (side >= 1) return side;
  throw RunTimeError(Failure::BadContent, "normalised images of " + Plain_Text(length) +
                                              " m in pixels of " + Plain_Text(pixel_width) +
                                              " m have no pixel");
}

}  // namespace

NormalAngles Angles_Of_Base(const ImageRecord& left, const ImageRecord& right) {
  const double bx = right.X0 - left.X0;
  const double by = right.Y0 - left.Y0;
  const double bz = right.Z0 - left.Z0;
  NormalAngles angles;
  angles.phi = MYFUNC_ATAN(Quotient(bz, bx, "the stereo base has no component along X"));
  angles.kappa = MYFUNC_ATAN(Quotient(by, std::sqrt(bx * bx + bz * bz), "the base has no length"));
  angles.omega = (left.Omega + right.Omega) / 2;
  if (std::abs(angles.phi) > kSteepBase) {
    angles.phi = (left.Phi + right.Phi) / 2;
    angles.omega = MYFUNC_ATAN(Quotient(bz, by, "the stereo base has no component along Y"));
  }
  if (!(bx > 0 && by > 0 && bz > 0)) angles.phi = -angles.phi;
  if (bx < 0 && by < 0) angles.kappa = -angles.kappa;
  return angles;
}

RotationMatrix Normal_Rotation(const NormalAngles& angles) {
  const double co = std::cos(angles.omega), so = std::sin(angles.omega);
  const double cp = std::cos(angles.phi), sp = std::sin(angles.phi);
  const double ck = std::cos(angles.kappa), sk = std::sin(angles.kappa);
  RotationMatrix t;
  t.m11 = cp * ck;
  t.m12 = sk;
  t.m13 = -sp * ck;
  t.m21 = -co * cp * sk + so * sp;
  t.m22 = co * ck;
  t.m23 = co * sp * sk + so * cp;
  t.m31 = so * cp * sk + co * sp;
  t.m32 = -so * ck;
  t.m33 = -so * sp * sk + co * cp;
  return t;
}

RotationMatrix Normal_Matrix(const RotationMatrix& rotation,
                             const RotationMatrix& normal_rotation) {
  const RotationMatrix& m = rotation;
  const RotationMatrix& t = normal_rotation;
  RotationMatrix n;
  n.m11 = m.m11 * t.m11 + m.m12 * t.m12 + m.m13 * t.m13;
  n.m12 = m.m11 * t.m21 + m.m12 * t.m22 + m.m13 * t.m23;
  n.m13 = m.m11 * t.m31 + m.m12 * t.m32 + m.m13 * t.m33;
  n.m21 = m.m21 * t.m11 + m.m22 * t.m12 + m.m23 * t.m13;
  n.m22 = m.m21 * t.m21 + m.m22 * t.m22 + m.m23 * t.m23;
  n.m23 = m.m21 * t.m31 + m.m22 * t.m32 + m.m23 * t.m33;
  n.m31 = m.m31 * t.m11 + m.m32 * t.m12 + m.m33 * t.m13;
  n.m32 = m.m31 * t.m21 + m.m32 * t.m22 + m.m33 * t.m23;
  n.m33 = m.m31 * t.m31 + m.m32 * t.m32 + m.m33 * t.m33;
  return n;
}

StereoImage Make_Stereo_Image(const ImageRecord& image, const RotationMatrix& normal_rotation) {
  StereoImage side;
  side.centre = {image.X0, image.Y0, image.Z0};
  side.rotation = Build_Rotation_Matrix(image.Omega, image.Phi, image.Kappa);
  side.normal = Normal_Matrix(side.rotation, normal_rotation);
  side.c = image.PrincipalDistance;
  side.A1 = image.AffineA1;
  side.A2 = image.AffineA2;
  side.A0 = image.AffineA0;
  side.B1 = image.AffineB1;
  side.B2 = image.AffineB2;
  side.B0 = image.AffineB0;
  return side;
}

void Include_Image(NormalExtent& extent, const ImageRecord& image, const StereoImage& side) {
  const Camera camera = Make_Camera(image, side.rotation);
  const double right = image.FullWidth - 1.0;
  const double top = image.FullHeight - 1.0;
  for (const PixelPosition& corner : {PixelPosition{0, 0}, PixelPosition{0, top},
                                      PixelPosition{right, top}, PixelPosition{right, 0}}) {
    const NormalPosition at = Film_To_Normal(side, Pixel_To_Image(camera, corner));
    extent.Xmin = std::min(extent.Xmin, at.xn);
    extent.Xmax = std::max(extent.Xmax, at.xn);
    extent.Ymin = std::min(extent.Ymin, at.yn);
    extent.Ymax = std::max(extent.Ymax, at.yn);
  }
}

NormalExtent Extent_Of_Pair(const ImageRecord& left, const ImageRecord& right,
                            const StereoPair& pair) {
  NormalExtent extent;
  Include_Image(extent, left, pair.left);
  Include_Image(extent, right, pair.right);
  return extent;
}

void Set_Raster_Size(StereoPair& pair, const NormalExtent& extent) {
  const std::int16_t width = Raster_Side(extent.Xmax - extent.Xmin, pair.PixelWidth);
  const std::int16_t height = Raster_Side(extent.Ymax - extent.Ymin, pair.PixelWidth);
  pair.NormalWidth = width;
  pair.NormalHeight = height;
  pair.Xmin = extent.Xmin;
  pair.Ymax = extent.Ymax;
}

double Film_Pixel_Micrometres(const ImageRecord& image) {
  const double pixels_a_square_metre =
      image.AffineB2 * image.AffineA1 - image.AffineB1 * image.AffineA2;
  const double area =
      Quotient(1, pixels_a_square_metre, "the affine from film to pixels is singular");
  if (area > 0) return kMicrometres * std::sqrt(area);
  throw RunTimeError(Failure::BadContent, "image " + Plain_Text(image.ImageId) +
                                              ": the affine from film to pixels is mirrored");
}

}  // namespace sylvomex
