// SPDX-License-Identifier: MIT
#include "solver/camera_model.h"

#include <gtest/gtest.h>

#include <numbers>

#include "solver/test_cameras.h"
#include "support/failure_of.h"

namespace sylvomex {
namespace {

using testing::Camera;
using testing::Elementary_Product;
using testing::FilmPoint;
using testing::Matrix33;
using testing::Nine_Cameras;
using testing::Project;
using testing::Rotation_Of;

Matrix33 Rows(const RotationMatrix& m) {
  return {{{m.m11, m.m12, m.m13}, {m.m21, m.m22, m.m23}, {m.m31, m.m32, m.m33}}};
}

void Expect_Near(const Matrix33& a, const Matrix33& b, double tolerance) {
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      EXPECT_NEAR(static_cast<double>(a[i][j]), static_cast<double>(b[i][j]), tolerance)
          << "row " << i + 1 << ", column " << j + 1;
    }
  }
}

TEST(BuildRotationMatrix, ZeroAnglesGiveTheIdentityExactly) {
  Expect_Near(Rows(Build_Rotation_Matrix(0, 0, 0)), {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, 0);
}

TEST(BuildRotationMatrix, TurnsAboutXThenYThenZ) {
  for (const double omega : {-2.9, -0.3, 0.0, 0.7, 1.9}) {
    for (const double phi : {-1.2, 0.0, 0.04, 2.5}) {
      for (const double kappa : {-3.1, 0.0, 1.3}) {
        Expect_Near(Rows(Build_Rotation_Matrix(omega, phi, kappa)),
                    Elementary_Product(omega, phi, kappa), 1e-15);
      }
    }
  }
}

TEST(BuildRotationMatrix, RowsAreOrthonormal) {
  const Matrix33 m = Rows(Build_Rotation_Matrix(0.31, -0.72, 2.2));
  Matrix33 transposed{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) transposed[i][j] = m[j][i];
  }
  Expect_Near(testing::Product(m, transposed), {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, 1e-15);
}

TEST(BuildRotationMatrix, QuarterTurnOfKappaPutsNorthOnTheFilmsXAxis) {
  const ImageRecord image = Camera(0, 0, 1000, 0, 0, std::numbers::pi / 2);
  double x = 0, y = 0;
  Object_To_Image(image, Rotation_Of(image), 0, 100, 0, x, y);
  EXPECT_NEAR(x, 0.01, 1e-15);
  EXPECT_NEAR(y, 0, 1e-15);
}

TEST(PixelAffine, ForwardIsTheHandWorkedSum) {
  ImageRecord image;
  image.AffineA1 = 2;
  image.AffineA2 = 3;
  image.AffineA0 = 5;
  image.AffineB1 = 7;
  image.AffineB2 = 11;
  image.AffineB0 = 13;
  double col = 0, row = 0;
  Image_To_Pixel(image, 10, 100, col, row);
  EXPECT_EQ(col, 325);
  EXPECT_EQ(row, 1183);
  double x = 0, y = 0;
  Pixel_To_Image(image, 325, 1183, x, y);
  EXPECT_DOUBLE_EQ(x, 10);
  EXPECT_DOUBLE_EQ(y, 100);
}

TEST(PixelAffine, BackwardAfterForwardReturnsTheFilmPosition) {
  const ImageRecord image = Camera(0, 0, 0);
  for (const double film_x : {-0.112, 0.0, 0.03719}) {
    for (const double film_y : {-0.108, 0.0, 0.0501}) {
      double col = 0, row = 0, x = 0, y = 0;
      Image_To_Pixel(image, film_x, film_y, col, row);
      Pixel_To_Image(image, col, row, x, y);
      EXPECT_NEAR(x, film_x, 1e-15);
      EXPECT_NEAR(y, film_y, 1e-15);
    }
  }
}

TEST(PixelAffine, SingularAffineIsADivisionByZeroThatNamesTheImage) {
  ImageRecord image;
  image.ImageId = 7001;
  image.AffineA1 = 1;
  image.AffineA2 = 2;
  image.AffineB1 = 2;
  image.AffineB2 = 4;
  for (const ImageRecord& singular : {image, ImageRecord{}}) {
    double x = 3, y = 4;
    EXPECT_EQ(Failure_Of([&] { Pixel_To_Image(singular, 1, 2, x, y); }),
              "Division by zero: image " + std::to_string(singular.ImageId) +
                  ": the affine from film to pixels is singular");
    EXPECT_EQ(x, 3);
    EXPECT_EQ(y, 4);
  }
}

TEST(PixelAffine, PositionOutOfRangeIsAnOverflow) {
  const ImageRecord image = Camera(0, 0, 1000);
  double a = 0, b = 0;
  EXPECT_TRUE(Failure_Of([&] { Image_To_Pixel(image, 1e306, 0, a, b); }).starts_with("Overflow: "));
  EXPECT_TRUE(
      Failure_Of([&] { Pixel_To_Image(image, 1e308, 1e308, a, b); }).starts_with("Overflow: "));
}

TEST(ScaleNumber, IsTheHeightOverTheGroundByThePrincipalDistance) {
  EXPECT_DOUBLE_EQ(Scale_Number(Camera(0, 0, 1660), 160), 15000);
}

TEST(ScaleNumber, PrincipalDistanceOfZeroIsADivisionByZero) {
  for (const double Z : {0.0, 1000.0}) {
    const ImageRecord image = Camera(0, 0, 1000, 0, 0, 0, 0.0);
    EXPECT_TRUE(Failure_Of([&] { Scale_Number(image, Z); }).starts_with("Division by zero: "));
  }
}

TEST(RotateAndProject, RayParallelToThePlaneIsADivisionByZero) {
  const double r[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  double u = 0, v = 0;
  EXPECT_TRUE(Failure_Of([&] {
                Rotate_And_Project(1, 2, 0, 0.1, r, u, v);
              }).starts_with("Division by zero: "));
}

TEST(CollinearityPartials, PointInThePlaneOfTheCameraIsADivisionByZero) {
  const ImageRecord image = Camera(0, 0, 1000);
  const auto partials = [&] { Collinearity_Partials(image, Rotation_Of(image), 5, 6, 1000, 0, 0); };
  EXPECT_TRUE(Failure_Of(partials).starts_with("Division by zero: "));
}

TEST(ObjectToImage, FilmPositionOutOfRangeIsAnOverflow) {
  const ImageRecord image = Camera(0, 0, 0);
  double x = 0, y = 0;
  const auto project = [&] { Object_To_Image(image, Rotation_Of(image), 1e300, 0, 1e-20, x, y); };
  EXPECT_TRUE(Failure_Of(project).starts_with("Overflow: "));
}

TEST(ImageToObjectAtZ, GroundPositionOutOfRangeIsAnOverflow) {
  const ImageRecord image = Camera(0, 0, 0);
  double X = 0, Y = 0;
  const auto cut = [&] { Image_To_Object_At_Z(image, Rotation_Of(image), 1e308, 100, 0, X, Y); };
  EXPECT_TRUE(Failure_Of(cut).starts_with("Overflow: "));
}

TEST(ObjectToImage, PointStraightBelowFallsOnThePrincipalPoint) {
  const ImageRecord image = Camera(2515000, 6860000, 1810);
  double x = 7, y = 7;
  Object_To_Image(image, Rotation_Of(image), 2515000, 6860000, 160, x, y);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 0);
}

TEST(ObjectToImage, HundredMetresEastAThousandBelowIsOneCentimetreOnTheFilm) {
  const ImageRecord image = Camera(500, 600, 1200);
  double x = 0, y = 0;
  Object_To_Image(image, Rotation_Of(image), 600, 600, 200, x, y);
  EXPECT_DOUBLE_EQ(x, 0.01);
  EXPECT_EQ(y, 0);
}

TEST(ObjectToImage, TiltedCamerasAgreeWithTheIndependentProjection) {
  for (const ImageRecord& image : Nine_Cameras()) {
    double x = 0, y = 0;
    Object_To_Image(image, Rotation_Of(image), 2515123.4, 6859876.5, 171.25, x, y);
    const FilmPoint film = Project(image, 2515123.4, 6859876.5, 171.25);
    EXPECT_NEAR(x, static_cast<double>(film.x), 1e-14);
    EXPECT_NEAR(y, static_cast<double>(film.y), 1e-14);
  }
}

TEST(ObjectToImage, PointAboveTheCameraComesOutMirrored) {
  const ImageRecord image = Camera(0, 0, 1000);
  double x = 0, y = 0;
  Object_To_Image(image, Rotation_Of(image), 100, 50, 2000, x, y);
  EXPECT_DOUBLE_EQ(x, -0.01);
  EXPECT_DOUBLE_EQ(y, -0.005);
}

TEST(ObjectToImage, PointAtTheCamerasHeightWithZeroYGivesMinusOneAndZero) {
  const ImageRecord image = Camera(0, 0, 1000);
  double x = 3, y = 0;
  Object_To_Image(image, Rotation_Of(image), 100, 50, 1000, x, y);
  EXPECT_EQ(x, -1);
  EXPECT_EQ(y, 0);
}

TEST(ObjectToImage, PointAtTheCamerasHeightWithAnotherYGivesZeroAndKeepsIt) {
  const ImageRecord image = Camera(0, 0, 1000);
  double x = 3, y = 5;
  Object_To_Image(image, Rotation_Of(image), 100, 50, 1000, x, y);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 5);
}

TEST(ObjectToImage, PrincipalDistanceOfZeroCountsAsZeroDenominator) {
  const ImageRecord image = Camera(0, 0, 1000, 0, 0, 0, 0.0);
  double x = 3, y = 0;
  Object_To_Image(image, Rotation_Of(image), 100, 50, 0, x, y);
  EXPECT_EQ(x, -1);
  EXPECT_EQ(y, 0);
}

TEST(ObjectToImage, NaNInGivesNaNOut) {
  const ImageRecord image = Camera(0, 0, 1000);
  double x = 0, y = 0;
  Object_To_Image(image, Rotation_Of(image), std::nan(""), 50, 0, x, y);
  EXPECT_TRUE(std::isnan(x));
}

TEST(ObjectToPixel, IsTheAffineOfTheProjection) {
  const ImageRecord image = Camera(0, 0, 1000);
  double col = 0, row = 0;
  Object_To_Pixel(image, Rotation_Of(image), 100, 50, 0, col, row);
  EXPECT_DOUBLE_EQ(col, 71428.5 * 0.01 + 12.5 * 0.005 + 4000);
  EXPECT_DOUBLE_EQ(row, -11.25 * 0.01 + 71430 * 0.005 + 3900);
}

TEST(ObjectToPixel, ZeroDenominatorIsThePixelOfMinusOneAndZero) {
  const ImageRecord image = Camera(0, 0, 1000);
  double col = 9, row = 9;
  Object_To_Pixel(image, Rotation_Of(image), 100, 50, 1000, col, row);
  EXPECT_EQ(col, 4000 - 71428.5);
  EXPECT_EQ(row, 3900 + 11.25);
}

TEST(ImageToObjectAtZ, HandWorkedVerticalRay) {
  const ImageRecord image = Camera(500, 600, 1200);
  double X = 0, Y = 0;
  Image_To_Object_At_Z(image, Rotation_Of(image), 200, 0.01, -0.02, X, Y);
  EXPECT_DOUBLE_EQ(X, 600);
  EXPECT_DOUBLE_EQ(Y, 400);
}

TEST(ImageToObjectAtZ, RayParallelToThePlaneLeavesTheOutputsAsTheyWere) {
  // Without a principal distance the ray of an untilted camera lies in the film plane.
  const ImageRecord image = Camera(500, 600, 1200, 0, 0, 0, 0.0);
  double X = 17, Y = 18;
  Image_To_Object_At_Z(image, Rotation_Of(image), 200, 0.01, -0.02, X, Y);
  EXPECT_EQ(X, 17);
  EXPECT_EQ(Y, 18);
}

TEST(ImageToObjectAtZ, ReturnsToThePointThatWasProjected) {
  for (const ImageRecord& image : Nine_Cameras()) {
    const FilmPoint film = Project(image, 2515123.4, 6859876.5, 171.25);
    double X = 0, Y = 0;
    Image_To_Object_At_Z(image, Rotation_Of(image), 171.25, static_cast<double>(film.x),
                         static_cast<double>(film.y), X, Y);
    EXPECT_NEAR(X, 2515123.4, 1e-8);
    EXPECT_NEAR(Y, 6859876.5, 1e-8);
  }
}

struct Derivative {
  double x = 0, y = 0;
};

/// Of the film position by one object coordinate, by central differences.
Derivative Numeric_Derivative(const ImageRecord& image, int axis) {
  const long double point[3] = {2515123.4L, 6859876.5L, 171.25L};
  const long double h = 0.05L;
  long double above[3], below[3];
  for (int i = 0; i < 3; ++i) {
    above[i] = point[i] + (i == axis ? h : 0);
    below[i] = point[i] - (i == axis ? h : 0);
  }
  const FilmPoint a = Project(image, above[0], above[1], above[2]);
  const FilmPoint b = Project(image, below[0], below[1], below[2]);
  return {static_cast<double>((a.x - b.x) / (2 * h)), static_cast<double>((a.y - b.y) / (2 * h))};
}

TEST(CollinearityPartials, AreTheNegatedDerivativesOfTheProjection) {
  for (const ImageRecord& image : Nine_Cameras()) {
    const CollinearityPartials p =
        Collinearity_Partials(image, Rotation_Of(image), 2515123.4, 6859876.5, 171.25, 0, 0);
    const double ax[3] = {p.ax1, p.ax2, p.ax3};
    const double ay[3] = {p.ay1, p.ay2, p.ay3};
    for (int axis = 0; axis < 3; ++axis) {
      const Derivative d = Numeric_Derivative(image, axis);
      EXPECT_NEAR(ax[axis], -d.x, 1e-12) << "axis " << axis;
      EXPECT_NEAR(ay[axis], -d.y, 1e-12) << "axis " << axis;
    }
  }
}

TEST(CollinearityPartials, HandWorkedVerticalCamera) {
  // c / H = 1e-4; r = 100, s = 50, q = -1000.
  const ImageRecord image = Camera(0, 0, 1000);
  const CollinearityPartials p =
      Collinearity_Partials(image, Rotation_Of(image), 100, 50, 0, 0.0099, 0.0052);
  EXPECT_DOUBLE_EQ(p.ax1, -1e-4);
  EXPECT_DOUBLE_EQ(p.ay1, 0);
  EXPECT_DOUBLE_EQ(p.ax2, 0);
  EXPECT_DOUBLE_EQ(p.ay2, -1e-4);
  EXPECT_DOUBLE_EQ(p.ax3, -1e-5);
  EXPECT_DOUBLE_EQ(p.ay3, -5e-6);
  EXPECT_NEAR(p.lx, 0.0001, 1e-17);
  EXPECT_NEAR(p.ly, -0.0002, 1e-17);
}

TEST(RotateAndProject, IdentityScalesByTheRatioOfTheDistances) {
  const double identity[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  double u = 0, v = 0;
  Rotate_And_Project(0.02, -0.03, 0.1, 0.2, identity, u, v);
  EXPECT_DOUBLE_EQ(u, 0.04);
  EXPECT_DOUBLE_EQ(v, -0.06);
}

TEST(RotateAndProject, HandWorkedMatrix) {
  // den = 1*7 + 2*8 - 3*10 = -7; u = -5(1*1 + 2*2 - 3*3) / -7; v = -5(1*4 + 2*5 - 3*6) / -7.
  const double r[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
  double u = 0, v = 0;
  Rotate_And_Project(1, 2, 3, 5, r, u, v);
  EXPECT_DOUBLE_EQ(u, -20.0 / 7);
  EXPECT_DOUBLE_EQ(v, -20.0 / 7);
}

}  // namespace
}  // namespace sylvomex
