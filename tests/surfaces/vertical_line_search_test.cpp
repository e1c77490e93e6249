// SPDX-License-Identifier: MIT
#include "surfaces/vertical_line_search.h"

#include <gtest/gtest.h>
#include <tbb/parallel_for.h>

#include <cmath>
#include <string>
#include <vector>

#include "platform/rounding.h"
#include "support/failure_of.h"
#include "surfaces/noise_triplet.h"

namespace sylvomex {
namespace {

std::optional<SurfaceSearch> Search(const Triplet& block, const SearchSettings& settings,
                                    const FilmPosition& film, double centre) {
  const SurfaceImage& fixed = block[settings.fixed_image];
  const auto window = Textured_Window(settings, fixed, film, centre);
  if (!window) return std::nullopt;
  return Search_Vertical_Line(settings, *window, fixed.camera, block.Moving(settings), film,
                              centre);
}

/// The search as its rules read: a loop over the heights, a byte at a time, nothing kept.
class PlainSearch {
 public:
  PlainSearch(const Triplet& block, const SearchSettings& settings)
      : block_(block), settings_(settings), side_(settings.window_side) {}

  std::vector<SurfaceCandidate> Rows(const FilmPosition& film, double centre) const {
    const Camera& camera = block_[settings_.fixed_image].camera;
    const Point3D start = *Image_To_Object_At_Z(camera, centre, film);
    const Pixels fixed = Window(settings_.fixed_image, start);
    std::vector<SurfaceCandidate> rows;
    const int steps = static_cast<int>(std::round(2 * settings_.half_range / settings_.step));
    for (int n = 0; n <= steps; ++n) {
      const double Z = centre - settings_.half_range + n * settings_.step;
      const Point3D at = *Image_To_Object_At_Z(camera, Z, film);
      double score = 0;
      for (const int k : settings_.moving_images) score += Pearson(fixed, Window(k, at));
      score /= static_cast<double>(settings_.moving_images.size());
      rows.push_back({score, at.X, at.Y, Z});
    }
    return rows;
  }

 private:
  [[nodiscard]] Pixels Window(int image, const Point3D& point) const {
    const WindowRaster& raster = block_[image].raster;
    const PixelPosition pixel = Object_To_Pixel(block_[image].camera, point);
    const int top = To_Int32((kHeight - 1 - pixel.row) - side_ / 2.0);
    const int left = To_Int32(pixel.col - side_ / 2.0);
    Pixels window;
    for (int row = top; row < top + side_; ++row) {
      for (int col = left; col < left + side_; ++col) {
        const int offset = row * kWidth + col;
        const int byte = raster.color_flag == 1 ? 3 * offset + 1 : offset;
        window.push_back(raster.bytes[static_cast<std::size_t>(byte)]);
      }
    }
    return window;
  }

  // Pearson's coefficient by whole sums.
  static double Pearson(const Pixels& a, const Pixels& b) {
    long n = 0, sa = 0, sb = 0, aa = 0, bb = 0, ab = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
      ++n;
      sa += a[i];
      sb += b[i];
      aa += a[i] * a[i];
      bb += b[i] * b[i];
      ab += a[i] * b[i];
    }
    const double va = static_cast<double>(n * aa - sa * sa);
    const double vb = static_cast<double>(n * bb - sb * sb);
    return va == 0 || vb == 0 ? 0 : static_cast<double>(n * ab - sa * sb) / std::sqrt(va * vb);
  }

  const Triplet& block_;
  const SearchSettings& settings_;
  int side_;
};

void Expect_Plain_Rows(const Triplet& block, const SearchSettings& settings,
                       const FilmPosition& film, double centre) {
  const auto found = Search(block, settings, film, centre);
  ASSERT_TRUE(found);
  const auto plain = PlainSearch(block, settings).Rows(film, centre);
  ASSERT_EQ(found->candidates.size(), plain.size());
  for (std::size_t n = 0; n < plain.size(); ++n) {
    EXPECT_EQ(found->candidates[n].Correlation, plain[n].Correlation) << n;
    EXPECT_EQ(found->candidates[n].X, plain[n].X) << n;
    EXPECT_EQ(found->candidates[n].Y, plain[n].Y) << n;
    EXPECT_EQ(found->candidates[n].Z, plain[n].Z) << n;
  }
}

/// Column 700.3 and row 300.3 of image 0.
constexpr FilmPosition kPairPlace{0.002503, 0.000503};
/// Column 450.3 of image 1.
constexpr FilmPosition kTripletPlace{0.000003, 0.000503};

TEST(VerticalLineSearch, FourSettingsDifferAsTheyShould) {
  EXPECT_EQ(kPairPoint.window_side, 17);
  EXPECT_EQ(kTripletPoint.window_side, 13);
  EXPECT_EQ(kPairSurface.search.window_side, 15);
  EXPECT_EQ(kTripletSurface.search.window_side, 13);
  EXPECT_EQ(kPairSurface.search.acceptance, 0.65);
  EXPECT_EQ(kTripletSurface.search.acceptance, 0.4);
  EXPECT_TRUE(kPairSurface.follows_surface);
  EXPECT_FALSE(kTripletSurface.follows_surface);
}

TEST(VerticalLineSearch, SearchesBothEndsOfTheRange) {
  const Triplet block;
  const auto pair = Search(block, kPairPoint, kPairPlace, 2);
  ASSERT_TRUE(pair);
  ASSERT_EQ(pair->candidates.size(), 121U);
  EXPECT_EQ(pair->candidates.front().Z, -28);
  EXPECT_EQ(pair->candidates.back().Z, 32);
  const auto triplet = Search(block, kTripletPoint, kTripletPlace, 2);
  ASSERT_EQ(triplet->candidates.size(), 161U);
  EXPECT_EQ(triplet->candidates.front().Z, -6);
  EXPECT_NEAR(triplet->candidates.back().Z, 10, 1e-12);
  EXPECT_EQ(Search(block, kPairSurface.search, kPairPlace, 2)->candidates.size(), 81U);
  EXPECT_EQ(Search(block, kTripletSurface.search, kTripletPlace, 2)->candidates.size(), 71U);
}

TEST(VerticalLineSearch, PairFindsThePlaneAndTiesKeepTheLowerHeight) {
  // The window of image 0 begins at column round(691.8) = 692. That of image 1 shows the same
  // noise where round(691.8 - s) = 492: 199.3 < s < 200.3, and s = 200000 / (1000 - Z) makes this
  // -3.51 < Z < 1.50.
  const auto found = Search(Triplet(), kPairPoint, kPairPlace, 0);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->Best().Correlation, 1);
  EXPECT_EQ(found->Best().Z, -3.5);
  EXPECT_NEAR(found->Best().X, 1003.5 * 0.02503, 1e-9);
  EXPECT_NEAR(found->Best().Y, 1003.5 * 0.00503, 1e-9);
  EXPECT_EQ(found->candidates[62].Correlation, 1);    // Z = 1
  EXPECT_LT(found->candidates[63].Correlation, 0.5);  // Z = 1.5: s = 200.3005
}

TEST(VerticalLineSearch, TripletNeedsBothSides) {
  // Image 1 begins at round(443.8) = 444, image 2 agrees for 199.3 < s < 200.3, image 0 for
  // 199.7 < s < 200.7: both for -1.50 < Z < 1.50.
  const auto found = Search(Triplet(), kTripletPoint, kTripletPlace, 0);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->Best().Correlation, 1);
  EXPECT_NEAR(found->Best().Z, -1.5, 1e-9);
  EXPECT_NEAR(found->Best().X, 20 + 1001.5 * 0.00003, 1e-9);
}

TEST(VerticalLineSearch, OneMovingImageThatCorrelatesGivesHalfTheScore) {
  Triplet block;
  const Pixels other = Photograph(5000, 0);
  block[0].raster.bytes = other;
  const auto found = Search(block, kTripletPoint, kTripletPlace, 0);
  ASSERT_TRUE(found);
  const double r0 = 2 * found->Best().Correlation - 1;  // image 2 gives 1
  EXPECT_LE(found->Best().Correlation, (1 + r0) / 2 + 1e-12);
  EXPECT_LT(std::abs(r0), 0.4);
  EXPECT_LT(found->Best().Correlation, 0.7);
  EXPECT_GT(found->Best().Correlation, 0.5);
}

TEST(VerticalLineSearch, ABestHeightExistsEvenWhereEveryCorrelationIsNegative) {
  // The grey of the moving image falls where that of the fixed one rises.
  Triplet block;
  Pixels rising, falling;
  for (int row = 0; row < kHeight; ++row) {
    for (int col = 0; col < kWidth; ++col) {
      rising.push_back(static_cast<std::uint8_t>((col + 100) % 256));
      falling.push_back(static_cast<std::uint8_t>(255 - (col + 100) % 256));
    }
  }
  block[0].raster.bytes = rising;
  block[1].raster.bytes = falling;
  const auto found = Search(block, kPairPoint, kPairPlace, 0);
  ASSERT_TRUE(found);
  for (const SurfaceCandidate& row : found->candidates) EXPECT_LT(row.Correlation, -0.9);
  EXPECT_GE(found->Best().Correlation, -1);
}

TEST(VerticalLineSearch, IsThePlainLoopBitForBit) {
  for (const int color_flag : {0, 1}) {
    for (const double tilt : {0.0, 0.01}) {
      const Triplet block(color_flag, tilt);
      Expect_Plain_Rows(block, kPairPoint, {0.001503, 0.000303}, 3.25);
      Expect_Plain_Rows(block, kPairSurface.search, {0.001703, -0.000203}, -7);
      Expect_Plain_Rows(block, kTripletPoint, {0.000103, 0.000203}, 1.1);
      Expect_Plain_Rows(block, kTripletSurface.search, {-0.000203, 0.000103}, 0.7);
    }
  }
}

TEST(VerticalLineSearch, GivesTheSameBitsOnManyThreads) {
  const Triplet block(1, 0.01);
  constexpr int kPlaces = 200;
  const auto search = [&](int k) {
    const FilmPosition film{-0.0002 + 2e-6 * k, 0.0005 - 5e-6 * k};
    return Search(block, kTripletSurface.search, film, 0.01 * k)->candidates;
  };
  std::vector<std::vector<SurfaceCandidate>> together(kPlaces);
  tbb::parallel_for(0, kPlaces, [&](int k) { together[static_cast<std::size_t>(k)] = search(k); });
  for (int k = 0; k < kPlaces; ++k) {
    const auto alone = search(k);
    for (std::size_t n = 0; n < alone.size(); ++n) {
      ASSERT_EQ(together[static_cast<std::size_t>(k)][n].Correlation, alone[n].Correlation);
    }
  }
}

TEST(VerticalLineSearch, NamesTheImageWhoseWindowLeavesItsRaster) {
  // Column 140 of image 0 is column -60 of image 1.
  const Triplet block;
  const std::string failure = Failure_Of([&] { Search(block, kPairPoint, {-0.0031, 0.0005}, 0); });
  EXPECT_NE(failure.find("image 7001: the window of columns -"), std::string::npos) << failure;
}

TEST(VerticalLineSearch, MovingImageOfAThirdColourFlagNeverCorrelates) {
  Triplet block;
  block[1].raster.color_flag = 2;
  const auto found = Search(block, kPairPoint, kPairPlace, 0);
  ASSERT_TRUE(found);
  for (const SurfaceCandidate& row : found->candidates) EXPECT_EQ(row.Correlation, 0);
  EXPECT_EQ(found->Best().Z, -30);
}

TEST(TexturedWindow, FixedImageOfAThirdColourFlagIsRefused) {
  Triplet block;
  block[0].raster.color_flag = 2;
  EXPECT_NE(Failure_Of([&] {
              Search(block, kPairPoint, kPairPlace, 0);
            }).find("image 7000: ColorFlag is 2, grey is 0 and colour 1"),
            std::string::npos);
}

/// Whether a chessboard of two grey levels has texture for a search.
bool Chessboard_Has_Texture(const SearchSettings& settings, int level, int amplitude) {
  Triplet block;
  Pixels board;
  for (int k = 0; k < kWidth * kHeight; ++k) {
    const bool white = (k % kWidth + k / kWidth) % 2 == 0;
    board.push_back(static_cast<std::uint8_t>(white ? level + amplitude : level));
  }
  SurfaceImage& fixed = block[settings.fixed_image];
  fixed.raster.bytes = board;
  return Textured_Window(settings, fixed, kTripletPlace, 0).has_value();
}

TEST(TexturedWindow, DeviationMustReachTheLimitsShareOfTheMean) {
  // Half of the pixels 2 higher: mean 100 or so, deviation 1.0: 1 % of the mean. With 6: 3 %.
  EXPECT_FALSE(Chessboard_Has_Texture(kPairPoint, 99, 2));
  EXPECT_TRUE(Chessboard_Has_Texture(kPairPoint, 97, 6));
  EXPECT_FALSE(Chessboard_Has_Texture(kTripletPoint, 99, 2));
  // The pair's polygon asks for 5 %.
  EXPECT_FALSE(Chessboard_Has_Texture(kPairSurface.search, 97, 6));
  EXPECT_TRUE(Chessboard_Has_Texture(kPairSurface.search, 95, 12));
}

TEST(TexturedWindow, FlatWindowsHaveNoneBlackOnesIncluded) {
  EXPECT_FALSE(Chessboard_Has_Texture(kPairPoint, 100, 0));
  EXPECT_FALSE(Chessboard_Has_Texture(kPairPoint, 0, 0));
  EXPECT_FALSE(Chessboard_Has_Texture(kPairSurface.search, 0, 0));
}

}  // namespace
}  // namespace sylvomex
