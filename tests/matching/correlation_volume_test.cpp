// SPDX-License-Identifier: MIT
#include "matching/correlation_volume.h"

#include "matching/test_photo.h"

namespace sylvomex {
namespace {

double At(CorrelationVolume& volume, int image, int col, int row) {
  return volume.All()[static_cast<std::size_t>(image + 9 * (col + 1201 * row))];
}

TEST(CorrelationVolume, StartsWithZeros) {
  CorrelationVolume volume;
  EXPECT_EQ(volume.All().size(), 9U * 1201 * 1201);
  EXPECT_EQ(At(volume, 8, 1200, 1200), 0);
}

TEST(CorrelationVolume, ImageRunsFastestThenColumnThenRow) {
  CorrelationVolume volume;
  const std::vector<double> values{0.1, 0.2, 0.3, 0.4, 0.5, 0.6};
  volume.Store(4, 3, 2, values);
  EXPECT_EQ(At(volume, 4, 2, 0), 0.3);
  EXPECT_EQ(At(volume, 4, 0, 1), 0.4);
  EXPECT_EQ(At(volume, 3, 2, 0), 0);
}

TEST(CorrelationVolume, ASmallerPatchLeavesNothingOfALargerOne) {
  CorrelationVolume volume;
  volume.Store(0, 3, 2, std::vector<double>(6, 0.5));
  volume.Store(1, 3, 2, std::vector<double>(6, 0.25));
  volume.Store(0, 1, 3, std::vector<double>(3, -0.5));
  EXPECT_EQ(At(volume, 0, 0, 2), -0.5);
  EXPECT_EQ(At(volume, 0, 1, 0), 0);
  EXPECT_EQ(At(volume, 0, 2, 1), 0);
  EXPECT_EQ(At(volume, 1, 2, 1), 0.25);
}

TEST(CorrelationVolume, APatchAboveTwelveHundredAndOneNamesBothSizes) {
  CorrelationVolume volume;
  CorrelationVolume::Require_Room(1201, 1201);
  const std::string text =
      Failure_Of(Failure::SubscriptOutOfRange, [] { CorrelationVolume::Require_Room(1202, 1101); });
  EXPECT_NE(text.find("1202 x 1101"), std::string::npos);
  EXPECT_NE(text.find("1201 x 1201"), std::string::npos);
}

TEST(CorrelationBytes, CoverTheRangeHalfToEvenAndStopAtItsEnds) {
  EXPECT_EQ(Correlation_Bytes(std::vector<double>{-1, 0, 1, 0.5, 0.00390625, 0.01171875}),
            (std::vector<std::uint8_t>{0, 128, 255, 192, 128, 130}));  // 128.5 and 129.5
}

}  // namespace
}  // namespace sylvomex
