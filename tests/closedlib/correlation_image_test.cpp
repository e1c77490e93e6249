// SPDX-License-Identifier: MIT
#include "closedlib/correlation_image.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>

#include "matching_inputs.h"
#include "plain_correlation.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

struct Image {
  Bytes bytes;
  int width = 0, height = 0;
};

std::vector<double> Correlate(const Image& patch, const Image& pattern, int reference_col,
                              int reference_row, int threads = 1) {
  std::vector<double> result(patch.bytes.size(), 77);
  MYFUNC_CORIMA({patch.bytes, patch.width, patch.height, pattern.bytes, pattern.width,
                 pattern.height, reference_col, reference_row},
                result, threads);
  return result;
}

const Image kPatch = {{10, 20, 30, 40, 50,   //
                       60, 11, 92, 35, 44,   //
                       12, 85, 23, 70, 61,   //
                       99, 14, 55, 38, 27},  //
                      5,
                      4};

TEST(CorrelationImage, TemplateEqualToThePatchPieceGivesOne) {
  const Image pattern = {{11, 92, 85, 23}, 2, 2};
  const auto result = Correlate(kPatch, pattern, 0, 0);
  EXPECT_DOUBLE_EQ(result[1 * 5 + 1], 1);
}

TEST(CorrelationImage, InvertedTemplateGivesMinusOne) {
  const Image pattern = {{244, 163, 170, 232}, 2, 2};
  const auto result = Correlate(kPatch, pattern, 0, 0);
  EXPECT_DOUBLE_EQ(result[1 * 5 + 1], -1);
}

TEST(CorrelationImage, BrighterCopyWithMoreContrastGivesOne) {
  const Image pattern = {{2 * 11 + 3, 2 * 92 + 3, 2 * 85 + 3, 2 * 23 + 3}, 2, 2};
  EXPECT_DOUBLE_EQ(Correlate(kPatch, pattern, 0, 0)[1 * 5 + 1], 1);
}

TEST(CorrelationImage, ValueWorkedOutByHand) {
  // n sum(vt) - sum(v) sum(t) = 3 x 15 - 6 x 6 = 9; variances 3 x 18 - 36 = 18 and
  // 3 x 14 - 36 = 6.
  const Image patch = {{1, 1, 4}, 3, 1};
  const Image pattern = {{1, 2, 3}, 3, 1};
  EXPECT_NEAR(Correlate(patch, pattern, 1, 0)[1], 9 / std::sqrt(18.0 * 6), 1e-15);
}

TEST(CorrelationImage, ZeroPixelsOfTheTemplateDoNotCount) {
  // Without the middle: 1, 9 against 5, 7. The middle of the patch is arbitrary.
  const Image pattern = {{5, 0, 7}, 3, 1};
  EXPECT_DOUBLE_EQ(Correlate({{1, 200, 9}, 3, 1}, pattern, 0, 0)[0], 1);
  EXPECT_DOUBLE_EQ(Correlate({{9, 200, 1}, 3, 1}, pattern, 0, 0)[0], -1);
}

TEST(CorrelationImage, FlatTemplateGivesZero) {
  for (const double v : Correlate(kPatch, {{9, 9, 9, 9}, 2, 2}, 0, 0)) EXPECT_EQ(v, 0);
}

TEST(CorrelationImage, FlatWindowGivesZero) {
  const Image patch = {{7, 7, 7, 1}, 4, 1};
  const auto result = Correlate(patch, {{1, 2}, 2, 1}, 0, 0);
  EXPECT_EQ(result[0], 0);
  EXPECT_EQ(result[1], 0);
  EXPECT_DOUBLE_EQ(result[2], -1);
}

TEST(CorrelationImage, TemplateThatLeavesThePatchGivesZero) {
  const auto result = Correlate(kPatch, {{11, 92, 85, 23}, 2, 2}, 0, 0);
  for (std::size_t row = 0; row < 4; ++row) EXPECT_EQ(result[row * 5 + 4], 0);
  for (std::size_t col = 0; col < 5; ++col) EXPECT_EQ(result[3 * 5 + col], 0);
  EXPECT_NE(result[2 * 5 + 3], 0);
}

TEST(CorrelationImage, ZeroMarginOfTheTemplateMayLeaveThePatch) {
  const Image pattern = {{0, 0, 0, 0,    //
                          0, 11, 92, 0,  //
                          0, 85, 23, 0,  //
                          0, 0, 0, 0},
                         4,
                         4};
  const Image patch = {{11, 92, 85, 23}, 2, 2};
  const auto result = Correlate(patch, pattern, 1, 1);
  EXPECT_DOUBLE_EQ(result[0], 1);
  EXPECT_EQ(result[1], 0);
  EXPECT_EQ(result[2], 0);
}

TEST(CorrelationImage, ValueLiesAtTheReferencePoint) {
  const Image pattern = {{11, 92, 85, 23}, 2, 2};
  EXPECT_DOUBLE_EQ(Correlate(kPatch, pattern, 1, 1)[2 * 5 + 2], 1);
}

TEST(CorrelationImage, ReferencePointMayLieOutsideTheTemplate) {
  const Image pattern = {{11, 92, 85, 23}, 2, 2};
  EXPECT_DOUBLE_EQ(Correlate(kPatch, pattern, 3, -1)[0 * 5 + 4], 1);
  EXPECT_DOUBLE_EQ(Correlate(kPatch, pattern, -1, 2)[3 * 5 + 0], 1);
}

TEST(CorrelationImage, ReferencePointFarAwayGivesZeroEverywhere) {
  constexpr int kFar = std::numeric_limits<int>::max();
  for (const int away : {kFar, -kFar - 1, 5, -5}) {
    for (const double v : Correlate(kPatch, {{1, 2}, 2, 1}, away, 0)) EXPECT_EQ(v, 0);
  }
}

TEST(CorrelationImage, TemplateOfZerosAndEmptyTemplateGiveZero) {
  for (const double v : Correlate(kPatch, {{0, 0, 0, 0}, 2, 2}, 0, 0)) EXPECT_EQ(v, 0);
  for (const double v : Correlate(kPatch, {{}, 0, 0}, 0, 0)) EXPECT_EQ(v, 0);
}

TEST(CorrelationImage, TemplateLargerThanThePatchGivesZero) {
  Random random(1);
  const Image pattern = {Random_Bytes(random, 48, 1, 255), 8, 6};
  for (const double v : Correlate(kPatch, pattern, 3, 3)) EXPECT_EQ(v, 0);
}

TEST(CorrelationImage, PatchOfOnePixelGivesZero) {
  EXPECT_EQ(Correlate({{200}, 1, 1}, {{5}, 1, 1}, 0, 0)[0], 0);
}

TEST(CorrelationImage, EmptyPatchIsNotAnError) {
  EXPECT_TRUE(Correlate({{}, 0, 0}, {{5}, 1, 1}, 0, 0).empty());
}

TEST(CorrelationImage, ShortSpansAreRejected) {
  std::vector<double> result(20);
  const Bytes pattern = {1, 2};
  const auto correlate = [&](int width, int template_width) {
    MYFUNC_CORIMA({kPatch.bytes, width, 4, pattern, template_width, 1, 0, 0}, result);
  };
  EXPECT_NO_THROW(correlate(5, 2));
  EXPECT_THROW(correlate(6, 2), RunTimeError);
  EXPECT_THROW(correlate(5, 3), RunTimeError);
  EXPECT_THROW(correlate(-5, 2), RunTimeError);
  result.resize(19);
  EXPECT_THROW(correlate(5, 2), RunTimeError);
}

TEST(CorrelationImage, RejectionNamesBothSizes) {
  std::vector<double> result(20);
  try {
    MYFUNC_CORIMA({kPatch.bytes, 6, 4, kPatch.bytes, 1, 1, 0, 0}, result);
    FAIL() << "a patch of 24 pixels in 20 bytes was taken";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Kind(), Failure::SubscriptOutOfRange);
    EXPECT_NE(std::string(error.what()).find("6 x 4"), std::string::npos) << error.what();
    EXPECT_NE(std::string(error.what()).find("20"), std::string::npos) << error.what();
  }
}

/// Expected sums of whole correlation images, computed by an independent program with exact integer
/// sums.
TEST(CorrelationImage, SumsOfLargeImagesAreThoseOfAnIndependentProgram) {
  constexpr int kSide = 1201;
  const Image patch = {bench::Grey_Patch(kSide, kSide), kSide, kSide};
  const std::pair<int, double> sums[] = {
      {21, -2556.45898}, {41, -3358.67758}, {61, -8524.92472}, {101, -2786.2076}};
  for (const auto& [side, sum] : sums) {
    const Image pattern = {bench::Ellipse_Template(patch.bytes, kSide, 500, 640, side), side, side};
    const auto result = Correlate(patch, pattern, side / 2, side / 2, 0);
    EXPECT_NEAR(std::accumulate(result.begin(), result.end(), 0.0), sum, 1e-8 * -sum) << side;
    EXPECT_DOUBLE_EQ(result[640 * kSide + 500], 1) << side;
  }
}

}  // namespace
}  // namespace sylvomex
