// SPDX-License-Identifier: MIT
// Zonal masks held against the plain loop over all pixels and circles.
#include "products/zonal_image.h"

#include <gtest/gtest.h>

#include <random>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

Camera Camera_Of(double omega, double phi, double kappa) {
  ImageRecord image;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 10000;
  image.AffineA0 = 100;
  image.AffineB0 = 80;
  image.Z0 = 1000;
  image.Omega = omega;
  image.Phi = phi;
  image.Kappa = kappa;
  return Make_Camera(image);
}

std::vector<std::uint8_t> Plain_Mask(const Camera& camera, const PixelArea& area,
                                     std::span<const GroundCircle> circles) {
  std::vector<std::uint8_t> mask;
  for (int row = 0; row < area.rows; ++row) {
    for (int col = 0; col < area.columns; ++col) {
      std::uint8_t id = 0;
      const FilmPosition film = Pixel_To_Image(camera, {static_cast<double>(area.first_col + col),
                                                        static_cast<double>(area.first_row + row)});
      for (const GroundCircle& circle : circles) {
        const auto ground = Image_To_Object_At_Z(camera, circle.centre.Z, film);
        if (!ground) continue;
        const double dX = ground->X - circle.centre.X, dY = ground->Y - circle.centre.Y;
        if (dX * dX + dY * dY <= circle.radius * circle.radius) id = circle.id;
      }
      mask.push_back(id);
    }
  }
  return mask;
}

void Expect_Plain_Mask(const Camera& camera, const std::vector<GroundCircle>& circles) {
  const PixelArea area = Area_Of_Circles(camera, circles);
  const auto mask = Zonal_Mask(camera, area, circles);
  const auto plain = Plain_Mask(camera, area, circles);
  ASSERT_EQ(mask.size(), plain.size());
  EXPECT_TRUE(std::equal(plain.begin(), plain.end(), mask.All().begin()));
}

TEST(ZonalMask, IsThePlainLoopOverPixelsAndCircles) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(-60, 60), height(-20, 40), radius(0, 30);
  for (int round = 0; round < 20; ++round) {
    std::vector<GroundCircle> circles;
    for (int k = 1; k <= 8; ++k) {
      circles.push_back({{place(random), place(random), height(random)},
                         static_cast<std::uint8_t>(k),
                         radius(random)});
    }
    Expect_Plain_Mask(Camera_Of(0.02 * round, -0.01 * round, 0.3 * round), circles);
  }
}

TEST(ZonalMask, HoldsForACircleAroundTheCamera) {
  // Corners of the square around the circle lie behind the tilted camera.
  Expect_Plain_Mask(Camera_Of(1.2, 0, 0), {{{0, 30, 0}, 9, 5000}, {{0, 200, 0}, 3, 20}});
}

TEST(ZonalMask, ARadiusOfZeroMarksAtMostTheCentre) {
  const Camera camera = Camera_Of(0, 0, 0);
  const std::vector<GroundCircle> circles{{{0, 0, 0}, 5, 0}};
  const auto mask = Zonal_Mask(camera, Area_Of_Circles(camera, circles), circles);
  EXPECT_EQ(mask[0], 5);
  EXPECT_EQ(mask[1], 0);
}

TEST(ZonalArea, SpansTheCentresAndFiftyPixelsBeyondTheHighest) {
  const Camera camera = Camera_Of(0, 0, 0);
  const std::vector<GroundCircle> circles{{{-10.4, 0, 0}, 1, 500}, {{20.6, 7, 0}, 2, 1}};
  const PixelArea area = Area_Of_Circles(camera, circles);
  EXPECT_EQ(area.first_col, 90);
  EXPECT_EQ(area.first_row, 80);
  EXPECT_EQ(area.columns, 121 + 50 - 90 + 1);
  EXPECT_EQ(area.rows, 87 + 50 - 80 + 1);
}

TEST(ZonalArea, BeyondWhatCanBeCountedIsAnOverflow) {
  const std::vector<GroundCircle> circles{{{0, 0, 0}, 1, 1}, {{1e12, 0, 0}, 2, 1}};
  EXPECT_NE(Failure_Of([&] { Area_Of_Circles(Camera_Of(0, 0, 0), circles); }).find("Overflow"),
            std::string::npos);
}

}  // namespace
}  // namespace sylvomex
