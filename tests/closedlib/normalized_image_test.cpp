// SPDX-License-Identifier: MIT
// The normalised image compared with its definition, evaluated pixel by pixel in doubles.
#include "closedlib/normalized_image.h"

#include <gtest/gtest.h>

#include <cmath>

#include "closedlib/plain_normalized_image.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

Bytes Resample(const NormalizedImage& image, const Bytes& source) {
  Bytes target(Raster_Bytes(image.width, image.height, image.colour));
  Resample_Rows(image, source, 0, image.height, target);
  return target;
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
