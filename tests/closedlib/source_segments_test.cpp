// SPDX-License-Identifier: MIT
// Source positions of whole segments compared with the plain formula.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "closedlib/plain_normalized_image.h"
#include "closedlib/source_places.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

constexpr int kSide = 3000;  // pixels of source and target

/// A frame seen with a principal distance of 2000 pixels.
NormalizedImage Frame(double tilt, double slope) {
  NormalizedImage image = Level(kSide, kSide, false);
  image.c = 0.02;
  image.Xmin = -0.015;
  image.Ymax = 0.015;
  image.affine = {1e5, 0, 1500.3, 0, 1e5, 1499.2};
  image.matrix = {1, -slope, tilt, slope, 1, 0.01, -tilt, 0.01, 1};
  return image;
}

RowProjection Row_Of(const NormalizedImage& image, int row) {
  RowProjection projection;
  projection.Xmin = image.Xmin;
  projection.PixelWidth = image.PixelWidth;
  projection.yn = image.Ymax - row * image.PixelWidth;
  projection.c = image.c;
  projection.matrix = image.matrix;
  projection.affine = image.affine;
  projection.last_col = projection.last_row = kSide - 1;
  return projection;
}

SourceSegments Segments_Of(const NormalizedImage& image, int row, int first_col) {
  SourceSegments segments;
  Find_Source_Segments(Row_Of(image, row), first_col, segments);
  return segments;
}

class SourceSegmentsOfRows : public OnEveryVectorUnit {};

/// The largest distance of a row's places from the plain formula; NaN when a segment has none.
double Farthest(const NormalizedImage& image, int row, int first_col) {
  const SourceSegments segments = Segments_Of(image, row, first_col);
  for (const std::int32_t span : segments.span) {
    if (span < 0) return std::numeric_limits<double>::quiet_NaN();
  }
  SourcePlaces places;
  Find_Segment_Places(segments, 0, kChunkSegments, kSide, places);
  double farthest = 0;
  for (std::size_t k = 0; k < kResampledTogether; ++k) {
    const auto [col, down] = Plain_Place(image, first_col + static_cast<int>(k), row);
    const int left = places.pixel[k] % kSide, upper = places.pixel[k] / kSide;
    farthest = std::max({farthest, std::abs(left + double{places.right[k]} - col),
                         std::abs(upper + double{places.below[k]} - down)});
  }
  return farthest;
}

TEST_F(SourceSegmentsOfRows, LieWithinAMillionthOfAPixelOfThePlainFormula) {
  // The relative change of the denominator is 0.055 / 2000 = 2.75e-5 a pixel at most.
  for (const double tilt : {0.0, 0.02, -0.055, 0.055}) {
    for (const double slope : {-0.12, -0.03, 0.0, 0.001, 0.12}) {
      for (const int row : {1300, 1507, 1801}) {
        for (const int first_col : {1000, 1444}) {
          Run([&] {
            EXPECT_LT(Farthest(Frame(tilt, slope), row, first_col), 1e-6)
                << tilt << " " << slope << " " << row << " " << first_col;
          });
        }
      }
    }
  }
}

TEST_F(SourceSegmentsOfRows, AMirroredRowIsFollowedBackwards) {
  NormalizedImage image = Frame(0.02, 0.03);
  for (const std::size_t k : {0, 1, 3, 4}) image.matrix[k] = -image.matrix[k];
  image.matrix[2] = -image.matrix[2];
  image.matrix[5] = -image.matrix[5];
  Run([&] { EXPECT_LT(Farthest(image, 1507, 1200), 1e-6); });
}

TEST_F(SourceSegmentsOfRows, ARowBesideTheSourceIsBlack) {
  NormalizedImage image = Frame(0, 0);
  image.affine[5] = 9000;
  Run([&] {
    for (const std::int32_t span : Segments_Of(image, 1500, 1000).span) {
      EXPECT_EQ(span, kBlackSegment);
    }
  });
}

void Expect_By_Pixel(const NormalizedImage& image, int row, int first_col) {
  EXPECT_EQ(Segments_Of(image, row, first_col).span[0], kByPixel);
}

TEST_F(SourceSegmentsOfRows, WhatAParabolaDoesNotFollowGoesByPixel) {
  NormalizedImage turned = Frame(0, 0);
  turned.matrix = {0, -1, 0, 1, 0, 0, 0, 0, 1};
  NormalizedImage through_the_horizon = Frame(0, 0);
  through_the_horizon.matrix = {1, 0, 0, 0, 1, 0, 1, 0, 0};
  Run([&] {
    Expect_By_Pixel(Frame(0.07, 0), 1500, 1200);  // 3.5e-5 a pixel
    Expect_By_Pixel(Frame(0, 0.3), 1500, 1500);
    Expect_By_Pixel(turned, 1500, 1500);
    Expect_By_Pixel(through_the_horizon, 1500, 1499);
  });
}

TEST_F(SourceSegmentsOfRows, TheBorderOfTheSourceGoesByPixel) {
  NormalizedImage image = Frame(0, 0);  // source col = col + 0.3, row = row - 0.2
  image.matrix = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  Run([&] {
    EXPECT_EQ(Segments_Of(image, 1500, -24).span[0], kBlackSegment);
    EXPECT_EQ(Segments_Of(image, 1500, -8).span[0], kByPixel);
    EXPECT_GE(Segments_Of(image, 1500, 16).span[0], 0);
    EXPECT_EQ(Segments_Of(image, 1500, 2990).span[0], kByPixel);
    EXPECT_EQ(Segments_Of(image, 0, 1500).span[0], kBlackSegment);
    EXPECT_EQ(Segments_Of(image, 1, 1500).span[0], kByPixel);
    EXPECT_GE(Segments_Of(image, 2, 1500).span[0], 0);
    EXPECT_GE(Segments_Of(image, 2996, 1500).span[0], 0);
    EXPECT_EQ(Segments_Of(image, 2997, 1500).span[0], kByPixel);
  });
}

}  // namespace
}  // namespace sylvomex
