// SPDX-License-Identifier: MIT
// The normalised image compared with its definition, evaluated pixel by pixel in doubles.
#include "closedlib/normalized_image.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "support/failure_of.h"
#include "support/temporary_folder.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// An untilted image of 10-micrometre pixels: target pixel (i, j) coincides with source pixel (i,
/// j) from the top left corner.
NormalizedImage Level(int width, int height, bool colour) {
  NormalizedImage image;
  image.c = 0.1;
  image.width = image.full_width = static_cast<std::int16_t>(width);
  image.height = image.full_height = static_cast<std::int16_t>(height);
  image.PixelWidth = 1e-5;
  image.colour = colour;
  image.affine = {1e5, 0, 0, 0, 1e5, 0};
  image.matrix = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  image.Ymax = (height - 1) * 1e-5;
  return image;
}

Bytes Random_Bytes(std::size_t count) {
  std::mt19937 random(7);
  Bytes bytes(count);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

Bytes Resample(const NormalizedImage& image, const Bytes& source) {
  Bytes target(Raster_Bytes(image.width, image.height, image.colour));
  Resample_Rows(image, source, 0, image.height, target);
  return target;
}

/// The definition: the interpolated value of one channel; 0 outside.
double Plain_Value(const NormalizedImage& image, const Bytes& source, int i, int j, int channel) {
  const double v[] = {image.Xmin + i * image.PixelWidth, image.Ymax - j * image.PixelWidth,
                      -image.c};
  double t[3];
  for (int k = 0; k < 3; ++k) {
    t[k] = image.matrix[3 * k] * v[0] + image.matrix[3 * k + 1] * v[1] +
           image.matrix[3 * k + 2] * v[2];
  }
  const double x = -image.c * t[0] / t[2];
  const double y = -image.c * t[1] / t[2];
  const auto& a = image.affine;
  const double col = a[0] * x + a[1] * y + a[2];
  const double row = image.full_height - 1 - (a[3] * x + a[4] * y + a[5]);
  if (!(col >= 0 && col <= image.full_width - 1 && row >= 0 && row <= image.full_height - 1)) {
    return 0;
  }
  const int bytes = image.colour ? 3 : 1;
  const auto at = [&](double c, double r) {
    const auto whole_col = static_cast<std::size_t>(std::min(c, image.full_width - 1.0));
    const auto whole_row = static_cast<std::size_t>(std::min(r, image.full_height - 1.0));
    return static_cast<double>(
        source[bytes * (whole_row * image.full_width + whole_col) + channel]);
  };
  const double left = std::floor(col), up = std::floor(row);
  const double fx = col - left, fy = row - up;
  return (1 - fy) * ((1 - fx) * at(left, up) + fx * at(left + 1, up)) +
         fy * ((1 - fx) * at(left, up + 1) + fx * at(left + 1, up + 1));
}

class NormalizedImages : public OnEveryVectorUnit {};

TEST_F(NormalizedImages, MatchTheDefinitionWithinRounding) {
  NormalizedImage image = Level(301, 187, true);
  image.full_width = 280;
  image.full_height = 200;
  const double s = std::sin(0.03), k = std::cos(0.03);
  image.matrix = {k, -s, 0.0004, s, k, -0.0003, -0.0004, 0.0003, 1};
  image.affine = {1.02e5, 30, -4.25, -20, 0.99e5, 7.5};
  for (const bool colour : {true, false}) {
    image.colour = colour;
    const Bytes source = Random_Bytes(Raster_Bytes(280, 200, colour));
    Run([&] {
      const Bytes target = Resample(image, source);
      std::size_t at = 0;
      int seen = 0;
      for (int j = 0; j < image.height; ++j) {
        for (int i = 0; i < image.width; ++i) {
          for (int channel = 0; channel < (colour ? 3 : 1); ++channel, ++at) {
            const double plain = Plain_Value(image, source, i, j, channel);
            ASSERT_NEAR(target[at], plain, 0.501) << i << " " << j << " " << channel;
            if (plain > 0) ++seen;
          }
        }
      }
      EXPECT_GT(seen, 30000);
    });
  }
}

TEST_F(NormalizedImages, AnUntiltedImageIsCopied) {
  const NormalizedImage image = Level(130, 70, true);
  const Bytes source = Random_Bytes(Raster_Bytes(130, 70, true));
  // Positions are integers only up to rounding, which may put the border just outside.
  Run([&] {
    const Bytes target = Resample(image, source);
    for (int j = 1; j < 69; ++j) {
      for (int i = 3; i < 387; ++i) {
        ASSERT_EQ(target[390 * j + i], source[390 * j + i]) << i << " " << j;
      }
    }
  });
}

TEST_F(NormalizedImages, HalfAPixelBetweenTwoIsTheirMeanHalfToEven) {
  NormalizedImage image = Level(3, 2, false);
  // Powers of two keep every step exact: pixel = 1024 x film, c = 1.
  image.c = 1;
  image.PixelWidth = 1.0 / 1024;
  image.affine = {1024, 0, 0, 0, 1024, 0};
  image.Ymax = 1.0 / 1024;
  image.Xmin = 0.5 / 1024;
  const Bytes source{10, 13, 20, 1, 2, 5};
  // 11.5 to 12, 16.5 to 16, outside; 1.5 to 2, 3.5 to 4, outside.
  Run([&] { EXPECT_EQ(Resample(image, source), (Bytes{12, 16, 0, 2, 4, 0})); });
}

TEST_F(NormalizedImages, TheLastColumnAndRowBelongToTheImage) {
  NormalizedImage image = Level(3, 3, true);
  image.c = 1;
  image.PixelWidth = 1.0 / 1024;
  image.affine = {1024, 0, 0, 0, 1024, 0};
  image.Ymax = 2.0 / 1024;
  const Bytes source = Random_Bytes(27);
  Run([&] { EXPECT_EQ(Resample(image, source), source); });
}

TEST_F(NormalizedImages, AnImageOfOnePixelIsInterpolatedFromItself) {
  NormalizedImage image = Level(1, 1, true);
  Run([&] { EXPECT_EQ(Resample(image, {7, 8, 9}), (Bytes{7, 8, 9})); });
}

TEST_F(NormalizedImages, ARayAlongTheFilmIsBlack) {
  NormalizedImage image = Level(4, 4, false);
  image.matrix = {1, 0, 0, 0, 1, 0, 0, 0, 0};
  Run([&] { EXPECT_EQ(Resample(image, Bytes(16, 200)), Bytes(16, 0)); });
}

TEST(NormalizedImageFile, OneThreadAndAllGiveTheSameBytes) {
  const TemporaryFolder folder;
  NormalizedImage image = Level(500, 90, true);
  image.matrix = {1, -0.02, 0.01, 0.02, 1, 0, -0.01, 0, 1};
  const Bytes source = Random_Bytes(Raster_Bytes(500, 90, true));
  folder.Write("source.raw", {reinterpret_cast<const char*>(source.data()), source.size()});
  for (const int threads : {1, 0}) {
    const std::string name = "target" + std::to_string(threads);
    MYFUNC_CREATENORMALIZEDIMAGE(image, folder.File("source.raw"), folder.File(name), threads);
    const std::string bytes = folder.Read(name);
    EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), Resample(image, source));
  }
}

TEST(NormalizedImageFile, ASourceShorterThanItsSizeIsNamedAndTheOldTargetStays) {
  const TemporaryFolder folder;
  folder.Write("source.raw", "short");
  folder.Write("target.raw", "old");
  const std::string text = Failure_Of([&] {
    MYFUNC_CREATENORMALIZEDIMAGE(Level(4, 4, false), folder.File("source.raw"),
                                 folder.File("target.raw"));
  });
  EXPECT_NE(text.find("source.raw: the image has 16 bytes, the file 5"), std::string::npos) << text;
  EXPECT_EQ(folder.Read("target.raw"), "old");
}

TEST(NormalizedImageFile, ASideBelowOnePixelIsRejected) {
  NormalizedImage image = Level(4, 4, false);
  image.width = 0;
  Bytes target(16);
  EXPECT_NE(Failure_Of([&] { Resample_Rows(image, Bytes(16), 0, 4, target); }), "no failure");
}

TEST(NormalizedImageRows, SpansThatAreTooShortAreRejected) {
  const NormalizedImage image = Level(4, 4, false);
  Bytes target(16);
  EXPECT_NE(Failure_Of([&] { Resample_Rows(image, Bytes(15), 0, 4, target); }), "no failure");
  EXPECT_NE(Failure_Of([&] { Resample_Rows(image, Bytes(16), 0, 5, target); }), "no failure");
}

}  // namespace
}  // namespace sylvomex
