// SPDX-License-Identifier: MIT
#include "stereo/normal_case.h"

#include <gtest/gtest.h>

#include <cmath>

#include "imageblock/expect_failure.h"
#include "stereo/normal_plane.h"

namespace sylvomex {
namespace {

/// An image of 3000 x 2000 pixels of 10 micrometres, c = 0.1 m, centred on its principal point.
ImageRecord Image(double X0, double Y0, double Z0, double omega, double phi, double kappa) {
  ImageRecord image;
  image.FullWidth = 3001;
  image.FullHeight = 2001;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = 1e5;
  image.AffineA0 = 1500;
  image.AffineB2 = 1e5;
  image.AffineB0 = 1000;
  image.X0 = X0;
  image.Y0 = Y0;
  image.Z0 = Z0;
  image.Omega = omega;
  image.Phi = phi;
  image.Kappa = kappa;
  return image;
}

StereoPair Pair_Of(const ImageRecord& left, const ImageRecord& right) {
  const RotationMatrix normal = Normal_Rotation(Angles_Of_Base(left, right));
  StereoPair pair;
  pair.left = Make_Stereo_Image(left, normal);
  pair.right = Make_Stereo_Image(right, normal);
  return pair;
}

/// Largest difference of yn between the two images of points below the pair, metres.
double Largest_Row_Difference(const StereoPair& pair) {
  double largest = 0;
  for (double dX = -100; dX <= 600; dX += 50) {
    for (double dY = -300; dY <= 300; dY += 50) {
      for (const double height : {0.0, 25.0, 90.0}) {
        const Point3D point{pair.left.centre.X + dX, pair.left.centre.Y + dY, height};
        const double left = Object_To_Normal(pair.left, point).yn;
        const double right = Object_To_Normal(pair.right, point).yn;
        largest = std::max(largest, std::abs(left - right));
      }
    }
  }
  return largest;
}

TEST(NormalCase, ConjugatePointsLieOnOneRow) {
  const ImageRecord left = Image(1000, 2000, 1000, 0.03, -0.02, 0.05);
  for (const auto& [dX, dY, dZ] :
       {Point3D{400, -30, -8}, Point3D{400, 30, -8}, Point3D{400, -30, 8}, Point3D{-400, -30, 8}}) {
    const ImageRecord right = Image(1000 + dX, 2000 + dY, 1000 + dZ, -0.04, 0.06, -0.02);
    EXPECT_LT(Largest_Row_Difference(Pair_Of(left, right)), 1e-12) << dX << " " << dY << " " << dZ;
  }
}

TEST(NormalCase, AnglesComeFromTheBase) {
  const NormalAngles angles =
      Angles_Of_Base(Image(0, 0, 1000, 0.02, 0, 0), Image(300, 40, 1009, 0.04, 0, 0));
  // Three rising components: phi keeps its sign.
  EXPECT_DOUBLE_EQ(angles.phi, std::atan(0.03));
  EXPECT_DOUBLE_EQ(angles.kappa, std::atan(40 / std::sqrt(300.0 * 300 + 81)));
  EXPECT_DOUBLE_EQ(angles.omega, 0.03);
}

TEST(NormalCase, PhiChangesItsSignUnlessAllComponentsRise) {
  const ImageRecord left = Image(0, 0, 1000, 0, 0, 0);
  EXPECT_DOUBLE_EQ(Angles_Of_Base(left, Image(300, 40, 991, 0, 0, 0)).phi, std::atan(0.03));
  EXPECT_DOUBLE_EQ(Angles_Of_Base(left, Image(300, -40, 1009, 0, 0, 0)).phi, -std::atan(0.03));
  EXPECT_DOUBLE_EQ(Angles_Of_Base(left, Image(-300, 40, 1009, 0, 0, 0)).phi, std::atan(0.03));
}

TEST(NormalCase, KappaChangesItsSignForABaseToTheSouthWest) {
  const ImageRecord left = Image(0, 0, 1000, 0, 0, 0);
  EXPECT_DOUBLE_EQ(Angles_Of_Base(left, Image(-300, -40, 1000, 0, 0, 0)).kappa,
                   std::atan(40.0 / 300));
  EXPECT_DOUBLE_EQ(Angles_Of_Base(left, Image(-300, 40, 1000, 0, 0, 0)).kappa,
                   std::atan(40.0 / 300));
  EXPECT_DOUBLE_EQ(Angles_Of_Base(left, Image(300, -40, 1000, 0, 0, 0)).kappa,
                   -std::atan(40.0 / 300));
}

TEST(NormalCase, ABaseAlongYTakesPhiFromTheImages) {
  const NormalAngles angles =
      Angles_Of_Base(Image(0, 0, 1000, 0.1, 0.02, 0), Image(10, 400, 1008, 0.1, 0.04, 0));
  EXPECT_DOUBLE_EQ(angles.phi, 0.03);
  EXPECT_DOUBLE_EQ(angles.omega, std::atan(8.0 / 400));
}

TEST(NormalCase, PhiOfTheImagesChangesItsSignToo) {
  const NormalAngles angles =
      Angles_Of_Base(Image(0, 0, 1000, 0.1, 0.02, 0), Image(10, -400, 1008, 0.1, 0.04, 0));
  EXPECT_DOUBLE_EQ(angles.phi, -0.03);
  EXPECT_DOUBLE_EQ(angles.omega, std::atan(8.0 / -400));
}

TEST(NormalCase, ABaseExactlyAlongYIsADivisionByZero) {
  Expect_Failure(Failure::DivisionByZero,
                 [] { Angles_Of_Base(Image(0, 0, 1000, 0, 0, 0), Image(0, 400, 1000, 0, 0, 0)); });
}

TEST(NormalCase, ABaseOfNoLengthIsADivisionByZero) {
  Expect_Failure(Failure::DivisionByZero,
                 [] { Angles_Of_Base(Image(0, 0, 0, 0, 0, 0), Image(0, 0, 0, 0, 0, 0)); });
}

TEST(NormalRotation, IsARotation) {
  const RotationMatrix t = Normal_Rotation({0.2, -0.3, 0.4});
  const RotationMatrix unit = Normal_Matrix(t, t);
  const double identity[] = {unit.m11 - 1, unit.m12, unit.m13, unit.m21,    unit.m22 - 1,
                             unit.m23,     unit.m31, unit.m32, unit.m33 - 1};
  for (const double rest : identity) EXPECT_NEAR(rest, 0, 1e-15);
}

TEST(NormalRotation, ItsFirstAxisIsTheBaseForALevelPair) {
  // A base of (300, 40, 0): the axis is (cos kappa, sin kappa, 0).
  const RotationMatrix t =
      Normal_Rotation(Angles_Of_Base(Image(0, 0, 1000, 0, 0, 0), Image(300, 40, 1000, 0, 0, 0)));
  const double length = std::hypot(300, 40);
  EXPECT_NEAR(t.m11, 300 / length, 1e-15);
  EXPECT_NEAR(t.m12, 40 / length, 1e-15);
  EXPECT_NEAR(t.m13, 0, 1e-15);
}

TEST(NormalExtent, OfALevelPairIsTheFrame) {
  const ImageRecord left = Image(0, 0, 1000, 0, 0, 0);
  const ImageRecord right = Image(300, 0, 1000, 0, 0, 0);
  StereoPair pair = Pair_Of(left, right);
  const NormalExtent extent = Extent_Of_Pair(left, right, pair);
  // Pixels 0 ... 3000 and 0 ... 2000 of 10 micrometres about the principal point.
  EXPECT_NEAR(extent.Xmin, -0.015, 1e-15);
  EXPECT_NEAR(extent.Xmax, 0.015, 1e-15);
  EXPECT_NEAR(extent.Ymin, -0.01, 1e-15);
  EXPECT_NEAR(extent.Ymax, 0.01, 1e-15);
  pair.PixelWidth = 20e-6;
  Set_Raster_Size(pair, extent);
  EXPECT_EQ(pair.NormalWidth, 1500);
  EXPECT_EQ(pair.NormalHeight, 1000);
  EXPECT_EQ(pair.Xmin, extent.Xmin);
  EXPECT_EQ(pair.Ymax, extent.Ymax);
}

TEST(RasterSize, AWidthAbove32767IsAnOverflow) {
  StereoPair pair;
  pair.PixelWidth = 1e-7;
  Expect_Failure(Failure::Overflow, [&] { Set_Raster_Size(pair, {-0.002, 0.002, 0, 0.001}); });
}

TEST(RasterSize, NoPixelIsRejected) {
  StereoPair pair;
  pair.PixelWidth = 1;
  Expect_Failure(Failure::BadContent, [&] { Set_Raster_Size(pair, {-0.1, 0.1, -0.1, 0.1}); });
  pair.PixelWidth = 0;
  Expect_Failure(Failure::DivisionByZero, [&] { Set_Raster_Size(pair, {-0.1, 0.1, -0.1, 0.1}); });
}

TEST(FilmPixel, IsTheRootOfItsArea) {
  ImageRecord image = Image(0, 0, 0, 0, 0, 0);
  EXPECT_DOUBLE_EQ(Film_Pixel_Micrometres(image), 10);
  image.AffineB2 = -1e5;
  Expect_Failure(Failure::BadContent, [&] { Film_Pixel_Micrometres(image); });
  image.AffineB2 = 0;
  Expect_Failure(Failure::DivisionByZero, [&] { Film_Pixel_Micrometres(image); });
}

TEST(NormalPlane, FilmAndNormalPlaneAreInverses) {
  const StereoPair pair = Pair_Of(Image(1000, 2000, 1000, 0.03, -0.02, 0.05),
                                  Image(1400, 1970, 992, -0.04, 0.06, -0.02));
  const FilmPosition film{0.012, -0.007};
  const FilmPosition back = Normal_To_Film(pair.right, Film_To_Normal(pair.right, film));
  EXPECT_NEAR(back.x, film.x, 1e-15);
  EXPECT_NEAR(back.y, film.y, 1e-15);
}

TEST(NormalPlane, AnObjectPointComesBackOnItsOwnHeight) {
  const StereoPair pair = Pair_Of(Image(1000, 2000, 1000, 0.03, -0.02, 0.05),
                                  Image(1400, 1970, 992, -0.04, 0.06, -0.02));
  const Point3D point{1130, 2090, 44};
  const auto back = Normal_To_Object_At_Z(pair.left, Object_To_Normal(pair.left, point), point.Z);
  ASSERT_TRUE(back.has_value());
  EXPECT_NEAR(back->X, point.X, 1e-9);
  EXPECT_NEAR(back->Y, point.Y, 1e-9);
  EXPECT_EQ(back->Z, 44);
}

TEST(NormalPlane, APointInThePlaneOfTheCentreIsADivisionByZero) {
  const StereoPair pair = Pair_Of(Image(0, 0, 1000, 0, 0, 0), Image(300, 0, 1000, 0, 0, 0));
  Expect_Failure(Failure::DivisionByZero, [&] { Object_To_Normal(pair.left, {50, 60, 1000}); });
}

TEST(NormalPlane, RasterRowsCountDownwardFromYmax) {
  StereoPair pair;
  pair.Xmin = -0.02;
  pair.Ymax = 0.01;
  pair.PixelWidth = 1e-5;
  const RasterPosition at = Normal_To_Raster(pair, {-0.015, 0.008});
  EXPECT_NEAR(at.col, 500, 1e-9);
  EXPECT_NEAR(at.row, 200, 1e-9);
}

}  // namespace
}  // namespace sylvomex
