// SPDX-License-Identifier: MIT
// Products by transforms against direct integer sums.
#include "closedlib/correlation_transform.h"

#include <gtest/gtest.h>

#include <cmath>

#include "matching_inputs.h"
#include "plain_correlation.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

struct Picture {
  Bytes bytes;
  int width = 0, height = 0;

  [[nodiscard]] int At(int col, int row) const {
    return bytes[static_cast<std::size_t>(row * width + col)];
  }
};

Picture Flat(int width, int height, std::uint8_t value) {
  return {Bytes(static_cast<std::size_t>(width * height), value), width, height};
}

Picture Noise(Random& random, int width, int height, int least, int most) {
  return {Random_Bytes(random, static_cast<std::size_t>(width * height), least, most), width,
          height};
}

/// Sum of v (t - 128) over the template's non-zero pixels, its first pixel at (col, row).
std::int64_t Plain_Product(const Picture& patch, const Picture& pattern, int col, int row) {
  std::int64_t sum = 0;
  for (int j = 0; j < pattern.height; ++j) {
    for (int i = 0; i < pattern.width; ++i) {
      const int t = pattern.At(i, j);
      if (t != 0) sum += patch.At(col + i, row + j) * (t - 128);
    }
  }
  return sum;
}

/// The products of a template without zero margins at all its positions in the patch.
Picture Places(const Picture& patch, const Picture& pattern) {
  return {{}, patch.width - pattern.width + 1, patch.height - pattern.height + 1};
}

std::vector<double> Products_Of(const Picture& patch, const Picture& pattern, TileShape shape,
                                int threads) {
  const CorrelationPlan plan = Plan_Correlation(pattern.bytes, pattern.width, pattern.height);
  const Picture places = Places(patch, pattern);
  std::vector<double> products(static_cast<std::size_t>(places.width * places.height), 0.5);
  Transform_Products(
      plan, shape,
      {patch.bytes.data(), static_cast<std::size_t>(patch.width), patch.width, patch.height},
      {products.data(), static_cast<std::size_t>(places.width), places.width, places.height},
      threads);
  return products;
}

/// Checks every step-th place, on one thread and on all.
void Expect_Exact(const Picture& patch, const Picture& pattern, TileShape shape,
                  std::size_t step = 1) {
  const auto products = Products_Of(patch, pattern, shape, 1);
  EXPECT_EQ(products, Products_Of(patch, pattern, shape, 0));
  const int width = Places(patch, pattern).width;
  for (std::size_t at = 0; at < products.size(); at += step) {
    const int col = static_cast<int>(at) % width;
    const int row = static_cast<int>(at) / width;
    ASSERT_EQ(products[at], static_cast<double>(Plain_Product(patch, pattern, col, row)))
        << "at " << col << ", " << row << ", tiles of " << shape.cols << " x " << shape.rows;
  }
}

using TransformProducts = OnEveryVectorUnit;

TEST_F(TransformProducts, AreExactForEveryShapeOfTile) {
  Run([] {
    Random random(21);
    const Picture patch = Noise(random, 75, 51, 0, 255);
    const Picture pattern = Noise(random, 7, 6, 1, 255);
    for (int cols = 8; cols <= 256; cols *= 2) {
      for (int rows = 8; rows <= 256; rows *= 2) Expect_Exact(patch, pattern, {cols, rows});
    }
  });
}

TEST_F(TransformProducts, AreExactForPatchesAndTemplatesOfAnySize) {
  Run([] {
    Random random(22);
    for (int k = 0; k < 60; ++k) {
      const Picture pattern = Noise(random, Draw(random, 1, 32), Draw(random, 1, 32), 1, 255);
      const Picture patch = Noise(random, pattern.width + Draw(random, 0, 70),
                                  pattern.height + Draw(random, 0, 70), 0, 255);
      Expect_Exact(patch, pattern, {32, 64}, 7);
    }
  });
}

TEST(TransformProductsLarge, PatchSmallerThanATile) {
  Random random(23);
  Expect_Exact(Noise(random, 20, 30, 0, 255), Noise(random, 4, 6, 1, 255), {64, 64});
}

TEST(TransformProductsLarge, TemplateAsLargeAsThePatchAndTheTile) {
  Random random(24);
  Expect_Exact(Noise(random, 64, 128, 0, 255), Noise(random, 64, 128, 1, 255), {64, 128});
}

TEST(TransformProductsLarge, PixelsOutsideTheMaskDoNotCount) {
  Random random(25);
  Picture pattern = Noise(random, 12, 10, 0, 1);
  for (const std::size_t corner : {0U, 119U}) pattern.bytes[corner] = 255;
  Expect_Exact(Noise(random, 90, 80, 0, 255), pattern, {64, 64});
}

TEST(TransformProductsLarge, ConstantAndTwoLevelBlocks) {
  const Picture patch = {bench::Grey_Patch(960, 930, true), 960, 930};
  Random random(26);
  Expect_Exact(patch, Noise(random, 40, 41, 254, 255), {256, 512}, 977);
}

/// Every value at its maximum magnitude, where the sums and so the errors are largest.
TEST_F(TransformProducts, AreExactWhereEveryValueIsExtreme) {
  Run([] {
    Random random(27);
    for (const std::uint8_t t : {1, 255}) {
      Expect_Exact(Flat(700, 600, 255), Flat(101, 101, t), {512, 512}, 997);
      Expect_Exact(Noise(random, 700, 600, 254, 255), Flat(100, 90, t), {256, 128}, 997);
    }
  });
}

TEST(TransformProductsLarge, LargestAcceptedTileAndMaskStayExact) {
  constexpr TileShape kLargest = {1024, 1024};
  constexpr int kSide = 450;
  ASSERT_LT(Transform_Error(kLargest, kSide * kSide), 0.25);
  for (const std::uint8_t t : {1, 255}) {
    Random random(28);
    const Picture patch = Noise(random, 1100, 1030, 253, 255);
    Expect_Exact(patch, Flat(kSide, kSide, t), kLargest, 40009);
  }
}

TEST(TransformError, MatchesTheHandComputedBound) {
  // e = 10 x 2^-53 x 16; tiles of 256 x 256 pixels of 255 in both parts: 255 x 256 x sqrt(2);
  // template of 10000 x +-128: |template| = 12800, magnitudes 1280000.
  const double u = std::ldexp(1.0, -53);
  const double tile = 65280 * std::sqrt(2.0);
  const double expected = tile * ((320 * u + 3 * u) * 12800 + 160 * u * 1280000);
  EXPECT_NEAR(Transform_Error({256, 256}, 10000), expected, 1e-9 * expected);
}

CorrelationPlan Plan_Of(int width, int height) {
  Random random(29);
  const Picture pattern = Noise(random, width, height, 1, 255);
  return Plan_Correlation(pattern.bytes, width, height);
}

TEST(ChooseTiles, TilesContainTheTemplate) {
  const TileChoice choice = Choose_Tiles(Plan_Of(300, 20), 900, 900, 1);
  EXPECT_GE(choice.shape.cols, 300);
  EXPECT_GE(choice.shape.rows, 20);
  EXPECT_TRUE(std::isfinite(choice.cost));
}

TEST(ChooseTiles, RejectsWhatIsTooLargeOrNotExact) {
  EXPECT_FALSE(std::isfinite(Choose_Tiles(Plan_Of(1025, 2), 900, 900, 1).cost));
  EXPECT_FALSE(std::isfinite(Choose_Tiles(Plan_Of(1000, 1000), 100, 100, 1).cost));
}

}  // namespace
}  // namespace sylvomex
