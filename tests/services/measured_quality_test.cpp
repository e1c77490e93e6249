// SPDX-License-Identifier: MIT
#include "services/measured_quality.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

class SavedPoint : public testing::Test {
 protected:
  SavedPoint() {
    block.Add_Camera(0, 0, 1000);
    block.Add_Camera(200, 0, 1000);
    line.readable = true;
    line.at = {10, 20, 0};
    for (int k = 0; k < 2; ++k) line.rays.push_back(Ray(k));
  }

  /// Columns and rows of SyntheticBlock: 1000 + 100000 film pixels.
  MeasuredRay Ray(int k) {
    const ImageRecord& image = block.w.ImageBlock(k);
    return {image.ImageId, 1000 + 100000 * block.Film(line.at.X - image.X0, k, 0),
            1000 + 100000 * block.Film(line.at.Y - image.Y0, k, 0)};
  }

  SyntheticBlock block;
  MeasuredLine line;
};

TEST_F(SavedPoint, ExactRaysHaveNoSpread) {
  const auto quality = Quality_Of(block.w, line);
  ASSERT_TRUE(quality);
  EXPECT_NEAR(quality->std_x, 0, 1e-6);
  EXPECT_NEAR(quality->std_z, 0, 1e-6);
}

// A y-parallax of 2e leaves e in each image; with one redundancy s0 = sqrt(2) e, on the ground
// 0.1414 m for an e of one pixel of 0.1 m. Two rays: s0 / sqrt(2) = 0.1 m in Y from the rays' own
// y, and from the height, sZ = s0 sqrt(2) H / B = 1 m, another sZ Y / H = 0.02 m.
TEST_F(SavedPoint, TheParallaxOfTwoRaysIsTheSpreadOfY) {
  line.rays[0].row += 1;
  line.rays[1].row -= 1;
  const auto quality = Quality_Of(block.w, line);
  ASSERT_TRUE(quality);
  EXPECT_NEAR(quality->std_y, std::hypot(0.1, 0.02), 1e-5);
  EXPECT_NEAR(quality->std_z, 1, 1e-3);
}

TEST_F(SavedPoint, ARayOfAnImageThatIsNotLoadedLeavesItOpen) {
  line.rays[1].image_id = 999;
  EXPECT_FALSE(Quality_Of(block.w, line));
  line.rays.pop_back();
  EXPECT_FALSE(Quality_Of(block.w, line));
}

}  // namespace
}  // namespace sylvomex
