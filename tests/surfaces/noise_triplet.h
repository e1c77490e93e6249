// SPDX-License-Identifier: MIT
// Three photographs of a plane that is noise all over.
#pragma once

#include <cstdint>
#include <vector>

#include "surfaces/vertical_line_search.h"

namespace sylvomex {

using Pixels = std::vector<std::uint8_t>;

inline constexpr int kWidth = 900, kHeight = 500;

inline std::uint8_t Noise(int col, int row) {
  std::uint64_t z = static_cast<std::uint64_t>(col) * 0x9E3779B97F4A7C15U +
                    static_cast<std::uint64_t>(row) * 0xD1B54A32D192ED03U;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
  return static_cast<std::uint8_t>(z >> 56);
}

/// A noise photograph whose columns are shifted; grey or colour.
inline Pixels Photograph(int shift, int color_flag) {
  Pixels bytes;
  for (int row = 0; row < kHeight; ++row) {
    for (int col = 0; col < kWidth; ++col) {
      const std::uint8_t value = Noise(col + shift, row);
      if (color_flag == 1) bytes.push_back(17);
      bytes.push_back(value);
      if (color_flag == 1) bytes.push_back(99);
    }
  }
  return bytes;
}

/// c = 0.1 m, 10 um pixels, film (0, 0) at column 450, row 250 from the bottom.
inline ImageRecord Record(int id, double X0, int color_flag) {
  ImageRecord image;
  image.ImageId = id;
  image.ColorFlag = static_cast<std::uint8_t>(color_flag);
  image.SubWidth = kWidth;
  image.SubHeight = kHeight;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 100000;
  image.AffineA0 = 450;
  image.AffineB0 = 250;
  image.X0 = X0;
  image.Z0 = 1000;
  return image;
}

/// Three photographs along X, 20 m apart, 1000 m above a plane at height 0, which they show by
/// the same noise: image k is shifted by 200 k columns. So the shift between neighbours is
/// 200000 / (1000 - Z) columns for a point at height Z.
class Triplet {
 public:
  explicit Triplet(int color_flag = 0, double tilt = 0) {
    for (int k = 0; k < 3; ++k) {
      bytes_.push_back(Photograph(200 * k, color_flag));
      ImageRecord record = Record(7000 + k, 20.0 * k, color_flag);
      record.Omega = tilt;
      record.Phi = -tilt / 2;
      record.Kappa = tilt / 3;
      images_.push_back({Make_Camera(record), {}});
      records_.push_back(record);
    }
    for (std::size_t k = 0; k < 3; ++k) {
      images_[k].raster = Make_Window_Raster(records_[k], bytes_[k]);
    }
  }

  const SurfaceImage& operator[](int k) const { return images_[static_cast<std::size_t>(k)]; }
  SurfaceImage& operator[](int k) { return images_[static_cast<std::size_t>(k)]; }

  [[nodiscard]] std::vector<SurfaceImage> Moving(const SearchSettings& settings) const {
    std::vector<SurfaceImage> moving;
    for (const int k : settings.moving_images) moving.push_back((*this)[k]);
    return moving;
  }

 private:
  std::vector<Pixels> bytes_;
  std::vector<ImageRecord> records_;
  std::vector<SurfaceImage> images_;
};

}  // namespace sylvomex
