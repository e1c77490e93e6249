// SPDX-License-Identifier: MIT
#include "matching/template_ellipse.h"

#include <cmath>
#include <numbers>

#include "matching/test_photo.h"

namespace sylvomex {
namespace {

constexpr TemplateParameters kCrown{1.5, 3, 0};

TemplateRecord Ellipse_At(const Point3D& top, const TemplateParameters& crown = kCrown,
                          const TemplateRecord& previous = {}) {
  return Ellipse_Of_Crown(Upright(Test_Photo()), top, crown, previous);
}

TEST(TemplateEllipse, ATreeBelowTheCameraGivesACircleWithoutDirection) {
  const TemplateRecord ellipse = Ellipse_At({0, 0, 20});
  EXPECT_EQ(ellipse.RadialAngle, 0);
  EXPECT_NEAR(ellipse.SemiAxisTangential, 0.1 * 1.5 / 980, 1e-15);
  EXPECT_EQ(ellipse.SemiAxisRadial, ellipse.SemiAxisTangential);
}

TEST(TemplateEllipse, OffNadirTheRadialAxisIsTheDisplacementOfTheHalfHeight) {
  // 784 m east: the top lies at film 0.1 x 784 / 980 = 0.08, a point 3 m above it at
  // 0.1 x 784 / 977.
  const TemplateRecord ellipse = Ellipse_At({784, 0, 20});
  EXPECT_NEAR(ellipse.SemiAxisRadial, 0.1 * 784 / 977 - 0.08, 1e-14);
  EXPECT_NEAR(ellipse.SemiAxisTangential, 0.1 * 1.5 / 980, 1e-14);
  EXPECT_GT(ellipse.SemiAxisRadial, ellipse.SemiAxisTangential);
  EXPECT_NEAR(ellipse.CenterX, 0.08, 1e-15);
  EXPECT_NEAR(ellipse.CenterY, 0, 1e-15);
}

TEST(TemplateEllipse, NearNadirTheRadialAxisIsRaisedToTheTangentialOne) {
  // 98 m east: 0.1 x 98 (1 / 977 - 1 / 980) = 3.1e-5 against 1.5e-4.
  const TemplateRecord ellipse = Ellipse_At({98, 0, 20});
  EXPECT_EQ(ellipse.SemiAxisRadial, ellipse.SemiAxisTangential);
}

TEST(TemplateEllipse, RadialAngleRunsFromTheNadirPointToTheTop) {
  EXPECT_NEAR(Ellipse_At({784, 0, 20}).RadialAngle, 0, 1e-12);
  EXPECT_NEAR(Ellipse_At({0, 784, 20}).RadialAngle, std::numbers::pi / 2, 1e-12);
  EXPECT_NEAR(Ellipse_At({-784, 0, 20}).RadialAngle, std::numbers::pi, 1e-12);
  EXPECT_NEAR(Ellipse_At({588, -784, 20}).RadialAngle, std::atan2(-4.0, 3.0), 1e-12);
}

TEST(TemplateEllipse, ACentreAtTheTopHasNoShiftAfterAFreshStart) {
  const TemplateRecord ellipse = Ellipse_At({784, 300, 20});
  EXPECT_EQ(ellipse.ShiftCol, 0);
  EXPECT_EQ(ellipse.ShiftRow, 0);
}

TEST(TemplateEllipse, ALoweredCentreShiftsTheTopAgainstIt) {
  // 10 m below the top: film 0.1 x 784 / 990 instead of 0.08, 80.8 pixels nearer to the nadir;
  // in y 0.1 x -98 / 990 instead of -0.01, 10.1 pixels.
  const TemplateRecord ellipse = Ellipse_At({784, -98, 20}, {1.5, 3, -10});
  EXPECT_NEAR(ellipse.CenterX, 0.1 * 784 / 990, 1e-14);
  EXPECT_EQ(ellipse.ShiftCol, 81);
  EXPECT_EQ(ellipse.ShiftRow, -10);
}

TEST(TemplateEllipse, AShiftOfHalfAPixelOrLessKeepsThePreviousValue) {
  TemplateRecord previous;
  previous.ShiftCol = 7;
  previous.ShiftRow = -9;
  // The column moves by 80.8 pixels, the row by none.
  const TemplateRecord ellipse = Ellipse_At({784, 0, 20}, {1.5, 3, -10}, previous);
  EXPECT_EQ(ellipse.ShiftCol, 81);
  EXPECT_EQ(ellipse.ShiftRow, -9);
  EXPECT_EQ(Ellipse_At({784, 0, 20}, kCrown, ellipse).ShiftCol, 81);
}

TEST(TemplateEllipse, OutlineRunsRoundByTheParameterAngle) {
  TemplateRecord ellipse;
  ellipse.SemiAxisRadial = 5;
  ellipse.SemiAxisTangential = 2;
  ellipse.RadialAngle = std::numbers::pi / 2;
  const std::vector<FilmPosition> outline = Ellipse_Outline(ellipse, {10, 20});
  ASSERT_EQ(outline.size(), 126U);  // t = 0 to 6.25, 6.3 is past the full turn
  EXPECT_NEAR(outline[0].x, 10, 1e-12);
  EXPECT_NEAR(outline[0].y, 25, 1e-12);
  EXPECT_NEAR(outline[40].x, 10 - 2 * std::sin(2.0), 1e-12);
  EXPECT_NEAR(outline[40].y, 20 + 5 * std::cos(2.0), 1e-12);
}

}  // namespace
}  // namespace sylvomex
