// SPDX-License-Identifier: MIT
// Every implementation of the sums against the plain definition.
#include <gtest/gtest.h>

#include <cstring>

#include "closedlib/correlation_image.h"
#include "matching_inputs.h"
#include "plain_correlation.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

struct RandomCase {
  Bytes patch, pattern;
  CorrelationInput input;

  RandomCase(int patch_width, int patch_height, int template_width, int template_height) {
    input.patch_width = patch_width;
    input.patch_height = patch_height;
    input.template_width = template_width;
    input.template_height = template_height;
  }
  RandomCase(const RandomCase&) = delete;
  RandomCase& operator=(const RandomCase&) = delete;

  void Take(Bytes patch_bytes, Bytes pattern_bytes) {
    patch = std::move(patch_bytes);
    pattern = std::move(pattern_bytes);
    input.patch = patch;
    input.pattern = pattern;
  }
  [[nodiscard]] std::size_t Patch_Pixels() const {
    return static_cast<std::size_t>(input.patch_width * input.patch_height);
  }
  [[nodiscard]] std::size_t Template_Pixels() const {
    return static_cast<std::size_t>(input.template_width * input.template_height);
  }
};

std::vector<double> By_Path(const SumPath& path, const CorrelationInput& input, int threads,
                            Products products = Products::Added) {
  std::vector<double> result(static_cast<std::size_t>(input.patch_width * input.patch_height), 77);
  Correlate_By_Path(path, input, result, threads, products);
  return result;
}

bool Same_Bits(const std::vector<double>& a, const std::vector<double>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0;
}

/// Checks every step-th pixel.
void Expect_Definition(const CorrelationInput& input, const std::vector<double>& result,
                       std::size_t step = 1) {
  for (std::size_t at = 0; at < result.size(); at += step) {
    const int col = static_cast<int>(at) % input.patch_width;
    const int row = static_cast<int>(at) / input.patch_width;
    const long double expected = Plain_Coefficient(input, col, row);
    ASSERT_NEAR(result[at], static_cast<double>(expected), 1e-12)
        << "at " << col << ", " << row << " of " << input.patch_width << " x " << input.patch_height
        << ", template " << input.template_width << " x " << input.template_height;
    ASSERT_LE(std::abs(result[at]), 1);
    if (expected == 0) {
      ASSERT_EQ(result[at], 0);
    }
  }
}

void Expect_All_Paths_Agree(const CorrelationInput& input, const std::vector<double>& result) {
  std::vector<const SumPath*> paths = {&Portable_Sums()};
  if (Byte_Dot_Sums() != nullptr) paths.push_back(Byte_Dot_Sums());
  for (const SumPath* path : paths) {
    for (const Products products : {Products::Added, Products::Transformed, Products::Cheapest}) {
      for (const int threads : {1, 0}) {
        EXPECT_TRUE(Same_Bits(result, By_Path(*path, input, threads, products)))
            << "path " << (path == paths[0] ? "portable" : "byte dots") << ", products "
            << static_cast<int>(products) << ", threads " << threads;
      }
    }
  }
}

/// Keeps about the given share of the template's pixels.
void Punch(Random& random, Bytes& pattern, int keep_percent) {
  for (std::uint8_t& t : pattern) {
    if (Draw(random, 1, 100) > keep_percent) t = 0;
  }
}

void Draw_Case(Random& random, RandomCase& drawn) {
  const int spread = Draw(random, 0, 3);
  const int least = spread == 0 ? 250 : 0;
  const int most = spread == 1 ? 3 : 255;
  Bytes pattern = Random_Bytes(random, drawn.Template_Pixels(), least, most);
  Punch(random, pattern, Draw(random, 0, 2) * 50);
  drawn.Take(Random_Bytes(random, drawn.Patch_Pixels(), least, most), std::move(pattern));
  drawn.input.reference_col = Draw(random, -3, drawn.input.template_width + 2);
  drawn.input.reference_row = Draw(random, -3, drawn.input.template_height + 2);
}

using CorrelationPaths = OnEveryVectorUnit;

TEST_F(CorrelationPaths, SmallRandomCasesFollowTheDefinition) {
  Run([] {
    Random random(5);
    for (int k = 0; k < 150; ++k) {
      RandomCase drawn(Draw(random, 1, 90), Draw(random, 1, 30), Draw(random, 1, 14),
                       Draw(random, 1, 14));
      Draw_Case(random, drawn);
      const auto result = By_Path(Portable_Sums(), drawn.input, 1);
      Expect_Definition(drawn.input, result);
      Expect_All_Paths_Agree(drawn.input, result);
    }
  });
}

TEST_F(CorrelationPaths, TemplateSizedCasesFollowTheDefinition) {
  Run([] {
    Random random(6);
    for (int k = 0; k < 6; ++k) {
      RandomCase drawn(Draw(random, 60, 300), Draw(random, 60, 200), Draw(random, 15, 60),
                       Draw(random, 15, 60));
      Draw_Case(random, drawn);
      const auto result = By_Path(Portable_Sums(), drawn.input, 1);
      Expect_Definition(drawn.input, result, 97);
      Expect_All_Paths_Agree(drawn.input, result);
    }
  });
}

TEST_F(CorrelationPaths, BlackAndWhiteExtremesDoNotOverflow) {
  Run([] {
    Random random(7);
    RandomCase drawn(260, 240, 200, 190);
    Bytes patch = Random_Bytes(random, drawn.Patch_Pixels(), 254, 255);
    Bytes pattern = Random_Bytes(random, drawn.Template_Pixels(), 254, 255);
    drawn.Take(std::move(patch), std::move(pattern));
    const auto result = By_Path(Portable_Sums(), drawn.input, 1);
    Expect_Definition(drawn.input, result, 1009);
    Expect_All_Paths_Agree(drawn.input, result);
  });
}

/// Every pixel that leaves a window differs as much as possible from the one that enters.
TEST_F(CorrelationPaths, BrightRowsAboveDarkRowsDoNotOverflow) {
  Run([] {
    Random random(11);
    RandomCase striped(420, 24, 300, 3);
    Bytes patch(striped.Patch_Pixels());
    for (std::size_t at = 0; at < patch.size(); ++at) patch[at] = at / 420 / 4 % 2 == 0 ? 255 : 0;
    striped.Take(std::move(patch), Random_Bytes(random, striped.Template_Pixels(), 1, 255));
    const auto result = By_Path(Portable_Sums(), striped.input, 1);
    Expect_Definition(striped.input, result, 7);
    Expect_All_Paths_Agree(striped.input, result);
  });
}

TEST(CorrelationImageLarge, TemplateBeyond65536PixelsFollowsTheDefinition) {
  Random random(8);
  RandomCase drawn(330, 310, 300, 290);
  drawn.Take(Random_Bytes(random, drawn.Patch_Pixels(), 200, 255),
             Random_Bytes(random, drawn.Template_Pixels(), 1, 255));
  const auto result = By_Path(Portable_Sums(), drawn.input, 1);
  Expect_Definition(drawn.input, result, 23);
  Expect_All_Paths_Agree(drawn.input, result);
}

TEST(CorrelationImageLarge, ConstantAndTwoLevelBlocksStayExact) {
  constexpr int kSide = 960;
  const Bytes patch = bench::Grey_Patch(kSide, kSide, true);
  for (const int side : {21, 41, 101}) {
    RandomCase hard(kSide, kSide, side, side);
    hard.Take(patch, bench::Ellipse_Template(patch, kSide, 500, 640, side));
    hard.input.reference_col = hard.input.reference_row = side / 2;
    const auto result = By_Path(Portable_Sums(), hard.input, 0);
    Expect_Definition(hard.input, result, 211);
    Expect_All_Paths_Agree(hard.input, result);
    EXPECT_EQ(result[200 * kSide + 200], 0);
  }
}

TEST(CorrelationImageLarge, TexturedPatchGivesTheSameBitsOnEveryPath) {
  constexpr int kWidth = 1201, kHeight = 1100;
  const Bytes patch = bench::Grey_Patch(kWidth, kHeight);
  for (const int side : {21, 101}) {
    RandomCase textured(kWidth, kHeight, side, side);
    textured.Take(patch, bench::Ellipse_Template(patch, kWidth, 500, 640, side));
    textured.input.reference_col = textured.input.reference_row = side / 2;
    const auto result = By_Path(Portable_Sums(), textured.input, 0);
    Expect_Definition(textured.input, result, 4001);
    Expect_All_Paths_Agree(textured.input, result);
  }
}

TEST(CorrelationImageLarge, TemplateTooLargeForATransformIsStillCorrelated) {
  Random random(10);
  RandomCase wide(1100, 3, 1030, 2);
  wide.Take(Random_Bytes(random, wide.Patch_Pixels(), 0, 255),
            Random_Bytes(random, wide.Template_Pixels(), 1, 255));
  const auto result = By_Path(Portable_Sums(), wide.input, 1);
  Expect_Definition(wide.input, result);
  Expect_All_Paths_Agree(wide.input, result);
}

TEST(CorrelationImageLarge, StripsOfAHighPatchJoin) {
  Random random(9);
  RandomCase high(70, 1300, 5, 9);
  Draw_Case(random, high);
  high.Take(high.patch, Random_Bytes(random, high.Template_Pixels(), 1, 255));
  const auto result = By_Path(Portable_Sums(), high.input, 0);
  Expect_Definition(high.input, result);
  Expect_All_Paths_Agree(high.input, result);
}

}  // namespace
}  // namespace sylvomex
