// SPDX-License-Identifier: MIT
#include "solver/camera_model.h"

#include <gtest/gtest.h>

#include <numbers>

#include "solver/test_cameras.h"
#include "support/failure_of.h"

namespace sylvomex {
namespace {

using testing::Elementary_Product;
using testing::FilmPoint;
using testing::Image_From;
using testing::Matrix33;
using testing::Nine_Images;
using testing::Project;

template <class... Orientation>
Camera Camera_From(Orientation... orientation) {
  return Make_Camera(Image_From(orientation...));
}

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

TEST(BuildRotationMatrix, RotatesAboutXThenYThenZ) {
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
  const Camera camera = Camera_From(0, 0, 1000, 0, 0, std::numbers::pi / 2);
  const auto film = Object_To_Image(camera, {0, 100, 0});
  ASSERT_TRUE(film);
  EXPECT_NEAR(film->x, 0.01, 1e-15);
  EXPECT_NEAR(film->y, 0, 1e-15);
}

TEST(PixelAffine, ForwardIsTheHandWorkedSum) {
  ImageRecord image;
  image.AffineA1 = 2;
  image.AffineA2 = 3;
  image.AffineA0 = 5;
  image.AffineB1 = 7;
  image.AffineB2 = 11;
  image.AffineB0 = 13;
  const Camera camera = Make_Camera(image);
  const PixelPosition pixel = Image_To_Pixel(camera, {10, 100});
  EXPECT_EQ(pixel.col, 325);
  EXPECT_EQ(pixel.row, 1183);
  const FilmPosition film = Pixel_To_Image(camera, {325, 1183});
  EXPECT_DOUBLE_EQ(film.x, 10);
  EXPECT_DOUBLE_EQ(film.y, 100);
}

TEST(PixelAffine, BackwardAfterForwardReturnsTheFilmPosition) {
  const Camera camera = Camera_From(0, 0, 0);
  for (const double film_x : {-0.112, 0.0, 0.03719}) {
    for (const double film_y : {-0.108, 0.0, 0.0501}) {
      const FilmPosition film = Pixel_To_Image(camera, Image_To_Pixel(camera, {film_x, film_y}));
      EXPECT_NEAR(film.x, film_x, 1e-15);
      EXPECT_NEAR(film.y, film_y, 1e-15);
    }
  }
}

TEST(PixelAffine, SingularAffineIsADivisionByZeroNamingTheImage) {
  ImageRecord image;
  image.ImageId = 7001;
  image.AffineA1 = 1;
  image.AffineA2 = 2;
  image.AffineB1 = 2;
  image.AffineB2 = 4;
  for (const ImageRecord& singular : {image, ImageRecord{}}) {
    EXPECT_EQ(Failure_Of([&] {
                Pixel_To_Image(Make_Camera(singular), {1, 2});
              }),
              "Division by zero: image " + std::to_string(singular.ImageId) +
                  ": the affine from film to pixels is singular");
  }
}

TEST(PixelAffine, PositionOutOfRangeIsAnOverflow) {
  const Camera camera = Camera_From(0, 0, 1000);
  EXPECT_TRUE(Failure_Of([&] { Image_To_Pixel(camera, {1e306, 0}); }).starts_with("Overflow: "));
  EXPECT_TRUE(Failure_Of([&] {
                Pixel_To_Image(camera, {1e308, 1e308});
              }).starts_with("Overflow: "));
}

TEST(ScaleNumber, IsTheHeightAboveGroundDividedByThePrincipalDistance) {
  EXPECT_DOUBLE_EQ(Scale_Number(Camera_From(0, 0, 1660), 160), 15000);
}

TEST(ScaleNumber, PrincipalDistanceOfZeroIsADivisionByZero) {
  for (const double Z : {0.0, 1000.0}) {
    const Camera camera = Camera_From(0, 0, 1000, 0, 0, 0, 0.0);
    EXPECT_TRUE(Failure_Of([&] { Scale_Number(camera, Z); }).starts_with("Division by zero: "));
  }
}

TEST(RotateAndProject, RayParallelToThePlaneIsADivisionByZero) {
  const double r[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  EXPECT_TRUE(Failure_Of([&] {
                Rotate_And_Project({1, 2}, 0, 0.1, r);
              }).starts_with("Division by zero: "));
}

TEST(CollinearityPartials, PointInThePlaneOfTheCameraIsADivisionByZero) {
  const Camera camera = Camera_From(0, 0, 1000);
  const auto partials = [&] { Collinearity_Partials(camera, {5, 6, 1000}, {}); };
  EXPECT_TRUE(Failure_Of(partials).starts_with("Division by zero: "));
}

TEST(ObjectToImage, FilmPositionOutOfRangeIsAnOverflow) {
  const Camera camera = Camera_From(0, 0, 0);
  const auto project = [&] { (void)Object_To_Image(camera, {1e300, 0, 1e-20}); };
  EXPECT_TRUE(Failure_Of(project).starts_with("Overflow: "));
}

TEST(ImageToObjectAtZ, GroundPositionOutOfRangeIsAnOverflow) {
  const Camera camera = Camera_From(0, 0, 0);
  const auto cut = [&] { (void)Image_To_Object_At_Z(camera, 1e308, {100, 0}); };
  EXPECT_TRUE(Failure_Of(cut).starts_with("Overflow: "));
}

TEST(ObjectToImage, PointStraightBelowFallsOnThePrincipalPoint) {
  const auto film = Object_To_Image(Camera_From(2515000, 6860000, 1810), {2515000, 6860000, 160});
  ASSERT_TRUE(film);
  EXPECT_EQ(film->x, 0);
  EXPECT_EQ(film->y, 0);
}

TEST(ObjectToImage, HundredMetresEastAThousandBelowIsOneCentimetreOnTheFilm) {
  const auto film = Object_To_Image(Camera_From(500, 600, 1200), {600, 600, 200});
  ASSERT_TRUE(film);
  EXPECT_DOUBLE_EQ(film->x, 0.01);
  EXPECT_EQ(film->y, 0);
}

TEST(ObjectToImage, TiltedCamerasAgreeWithTheIndependentProjection) {
  for (const ImageRecord& image : Nine_Images()) {
    const auto film = Object_To_Image(Make_Camera(image), {2515123.4, 6859876.5, 171.25});
    const FilmPoint expected = Project(image, 2515123.4, 6859876.5, 171.25);
    ASSERT_TRUE(film);
    EXPECT_NEAR(film->x, static_cast<double>(expected.x), 1e-14);
    EXPECT_NEAR(film->y, static_cast<double>(expected.y), 1e-14);
  }
}

TEST(ObjectToImage, PointAboveTheCameraComesOutMirrored) {
  const auto film = Object_To_Image(Camera_From(0, 0, 1000), {100, 50, 2000});
  ASSERT_TRUE(film);
  EXPECT_DOUBLE_EQ(film->x, -0.01);
  EXPECT_DOUBLE_EQ(film->y, -0.005);
}

TEST(ObjectToImage, PointAtTheCamerasHeightHasNoFilmPosition) {
  EXPECT_FALSE(Object_To_Image(Camera_From(0, 0, 1000), {100, 50, 1000}));
}

TEST(FilmOfPoint, PointAtTheCamerasHeightIsMinusOneAndZero) {
  const FilmPosition film = Film_Of_Point(Camera_From(0, 0, 1000), {100, 50, 1000});
  EXPECT_EQ(film.x, -1);
  EXPECT_EQ(film.y, 0);
}

TEST(FilmOfPoint, AnyOtherPointEqualsObjectToImage) {
  const FilmPosition film = Film_Of_Point(Camera_From(0, 0, 1000), {100, 50, 0});
  EXPECT_DOUBLE_EQ(film.x, 0.01);
  EXPECT_DOUBLE_EQ(film.y, 0.005);
}

TEST(ObjectToImage, PrincipalDistanceOfZeroCountsAsZeroDenominator) {
  EXPECT_FALSE(Object_To_Image(Camera_From(0, 0, 1000, 0, 0, 0, 0.0), {100, 50, 0}));
}

TEST(ObjectToImage, NaNInGivesNaNOut) {
  const auto film = Object_To_Image(Camera_From(0, 0, 1000), {std::nan(""), 50, 0});
  ASSERT_TRUE(film);
  EXPECT_TRUE(std::isnan(film->x));
}

TEST(ObjectToPixel, IsTheAffineOfTheProjection) {
  const auto [col, row] = Object_To_Pixel(Camera_From(0, 0, 1000), {100, 50, 0});
  EXPECT_DOUBLE_EQ(col, 71428.5 * 0.01 + 12.5 * 0.005 + 4000);
  EXPECT_DOUBLE_EQ(row, -11.25 * 0.01 + 71430 * 0.005 + 3900);
}

TEST(ObjectToPixel, ZeroDenominatorIsThePixelOfMinusOneAndZero) {
  const auto [col, row] = Object_To_Pixel(Camera_From(0, 0, 1000), {100, 50, 1000});
  EXPECT_EQ(col, 4000 - 71428.5);
  EXPECT_EQ(row, 3900 + 11.25);
}

TEST(ImageToObjectAtZ, HandWorkedVerticalRay) {
  const auto ground = Image_To_Object_At_Z(Camera_From(500, 600, 1200), 200, {0.01, -0.02});
  ASSERT_TRUE(ground);
  EXPECT_DOUBLE_EQ(ground->X, 600);
  EXPECT_DOUBLE_EQ(ground->Y, 400);
  EXPECT_EQ(ground->Z, 200);
}

TEST(ImageToObjectAtZ, RayParallelToThePlaneHasNoGroundPosition) {
  // Without a principal distance the ray of an untilted camera lies in the film plane.
  const Camera camera = Camera_From(500, 600, 1200, 0, 0, 0, 0.0);
  EXPECT_FALSE(Image_To_Object_At_Z(camera, 200, {0.01, -0.02}));
}

TEST(ImageToObjectAtZ, ReturnsToThePointThatWasProjected) {
  for (const ImageRecord& image : Nine_Images()) {
    const FilmPoint film = Project(image, 2515123.4, 6859876.5, 171.25);
    const auto ground = Image_To_Object_At_Z(
        Make_Camera(image), 171.25, {static_cast<double>(film.x), static_cast<double>(film.y)});
    ASSERT_TRUE(ground);
    EXPECT_NEAR(ground->X, 2515123.4, 1e-8);
    EXPECT_NEAR(ground->Y, 6859876.5, 1e-8);
  }
}

struct Derivative {
  double x = 0, y = 0;
};

/// Derivative of the film position with respect to one object coordinate, by central differences.
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
  for (const ImageRecord& image : Nine_Images()) {
    const CollinearityPartials p =
        Collinearity_Partials(Make_Camera(image), {2515123.4, 6859876.5, 171.25}, {});
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
  const CollinearityPartials p =
      Collinearity_Partials(Camera_From(0, 0, 1000), {100, 50, 0}, {0.0099, 0.0052});
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
  const auto [u, v] = Rotate_And_Project({0.02, -0.03}, 0.1, 0.2, identity);
  EXPECT_DOUBLE_EQ(u, 0.04);
  EXPECT_DOUBLE_EQ(v, -0.06);
}

TEST(RotateAndProject, HandWorkedMatrix) {
  // den = 1*7 + 2*8 - 3*10 = -7; u = -5(1*1 + 2*2 - 3*3) / -7; v = -5(1*4 + 2*5 - 3*6) / -7.
  const double r[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
  const auto [u, v] = Rotate_And_Project({1, 2}, 3, 5, r);
  EXPECT_DOUBLE_EQ(u, -20.0 / 7);
  EXPECT_DOUBLE_EQ(v, -20.0 / 7);
}

}  // namespace
}  // namespace sylvomex
