// SPDX-License-Identifier: MIT
// The normalised image by its definition, pixel by pixel in doubles.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "closedlib/normalized_image.h"

namespace sylvomex {

using Bytes = std::vector<std::uint8_t>;

/// An untilted image of 10-micrometre pixels: target pixel (i, j) coincides with source pixel (i,
/// j) from the top left corner.
inline NormalizedImage Level(int width, int height, bool colour) {
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

inline Bytes Random_Bytes(std::size_t count) {
  std::mt19937 random(7);
  Bytes bytes(count);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

/// Where a target pixel lies in the source, rows from the top.
struct PlainPlace {
  double col, row;
};

inline PlainPlace Plain_Place(const NormalizedImage& image, int i, int j) {
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
  return {a[0] * x + a[1] * y + a[2], image.full_height - 1 - (a[3] * x + a[4] * y + a[5])};
}

/// The definition: the interpolated value of one channel; 0 outside.
inline double Plain_Value(const NormalizedImage& image, const Bytes& source, int i, int j,
                          int channel) {
  const auto [col, row] = Plain_Place(image, i, j);
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

}  // namespace sylvomex
