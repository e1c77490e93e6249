// SPDX-License-Identifier: MIT
#include "demo/write/product_session.h"

#include <gtest/gtest.h>

#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

TEST(ProductSession, DiscsOfTargetsLieWhereTheGroundProjects) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  Photograph image = Target_Image(Fly_Over(scene)[1]);
  const Point3D place = Target_Places(scene)[44];
  const std::vector<std::uint8_t> pixels = Target_Pixels(image, {place});
  double light = 0, col = 0, row = 0;
  const auto width = static_cast<std::size_t>(image.image.SubWidth);
  for (std::size_t k = 0; k < pixels.size(); ++k) {
    if (pixels[k] == 0) continue;
    const RawPixelCentre centre = Centre_Of_Raw_Pixel(image.image, static_cast<double>(k % width),
                                                      static_cast<double>(k / width));
    light += pixels[k];
    col += pixels[k] * centre.col;
    row += pixels[k] * centre.row;
  }
  const PixelPosition truth = Object_To_Pixel(image.camera, place);
  EXPECT_NEAR(col / light, truth.col, 0.02);
  EXPECT_NEAR(row / light, truth.row, 0.02);
  // A disc of 6 pixels radius.
  EXPECT_NEAR(light / 255, 113.1, 1.0);
}

TEST(ProductSession, AHundredTargetsLieOnTheGrid) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  const OrthoGrid grid = Product_Grid();
  const std::vector<Point3D> places = Target_Places(scene);
  EXPECT_EQ(places.size(), 100u);
  for (const Point3D& place : places) {
    EXPECT_GT(place.X, grid.X0 + 5);
    EXPECT_LT(place.X, grid.X0 + kOrthoSide - 5);
    EXPECT_GT(place.Y, grid.Y0 + 5);
    EXPECT_LT(place.Y, grid.Y0 + kOrthoSide - 5);
  }
}

TEST(ProductSession, MeasuresTheSameTopsInFullImagesAndCutOuts) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  const std::string session = Product_Session(scene, Fly_Over(scene));
  const auto count = [&](const std::string& text) {
    std::size_t n = 0;
    for (std::size_t at = session.find(text); at != std::string::npos;
         at = session.find(text, at + 1)) {
      ++n;
    }
    return n;
  };
  EXPECT_EQ(count("say \"full"), count("say \"cut"));
  EXPECT_EQ(count("menu Orto\n"), 3u);
}

}  // namespace
}  // namespace sylvomex::demo
