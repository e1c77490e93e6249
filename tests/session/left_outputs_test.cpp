// SPDX-License-Identifier: MIT
#include "session/left_outputs.h"

#include <gtest/gtest.h>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

/// A vertical photograph from 1000 m above (X0, Y0).
Camera Vertical(double X0, double Y0, double c) {
  Camera camera;
  camera.c = c;
  camera.centre = {X0, Y0, 1000};
  camera.m = Build_Rotation_Matrix(0, 0, 0);
  return camera;
}

TEST(LeftOutputs, APointAtTheCamerasHeightWithZeroYGivesMinusOneAndZero) {
  FilmPosition film{3, 0};
  Object_To_Image(Vertical(0, 0, 0.1), {100, 50, 1000}, film);
  EXPECT_EQ(film.x, -1);
  EXPECT_EQ(film.y, 0);
}

TEST(LeftOutputs, APointAtTheCamerasHeightWithAnotherYGivesZeroAndKeepsIt) {
  FilmPosition film{3, 5};
  Object_To_Image(Vertical(0, 0, 0.1), {100, 50, 1000}, film);
  EXPECT_EQ(film.x, 0);
  EXPECT_EQ(film.y, 5);
}

TEST(LeftOutputs, APointBelowTheCameraReplacesBothFilmCoordinates) {
  FilmPosition film{3, 5};
  Object_To_Image(Vertical(0, 0, 0.1), {100, 50, 0}, film);
  EXPECT_DOUBLE_EQ(film.x, 0.01);
  EXPECT_DOUBLE_EQ(film.y, 0.005);
}

TEST(LeftOutputs, ARayParallelToThePlaneLeavesTheGroundPosition) {
  // Without a principal distance the ray of an untilted camera lies in the film plane.
  Point3D ground{17, 18, 19};
  Image_To_Object_At_Z(Vertical(500, 600, 0), 0, {0.01, -0.02}, ground);
  EXPECT_EQ(ground.X, 17);
  EXPECT_EQ(ground.Y, 18);
}

TEST(LeftOutputs, AnyOtherRayReplacesTheGroundPosition) {
  Point3D ground{17, 18, 19};
  Image_To_Object_At_Z(Vertical(500, 600, 0.1), 0, {0.01, -0.02}, ground);
  EXPECT_DOUBLE_EQ(ground.X, 600);
  EXPECT_DOUBLE_EQ(ground.Y, 400);
}

TEST(LeftOutputs, ViewAnglesStayWithoutASolutionWhateverTheIndex) {
  const SyntheticBlock b;
  ViewAngles angles{1, 2, 3};
  Get_View_Angles(b.w, 9999, angles);
  EXPECT_EQ(angles.off_nadir, 1);
  EXPECT_EQ(angles.azimuth_difference, 2);
  EXPECT_EQ(angles.ray_azimuth, 3);
}

}  // namespace
}  // namespace sylvomex
