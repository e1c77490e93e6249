// SPDX-License-Identifier: MIT
// A vertical photograph for computation by hand: c = 0.1 m, 10 um pixels, 1000 m above Z = 0,
// principal point at full-image col 500, row 500; full image 1000 columns, 1001 rows. So with s =
// 0.1 / (1000 - Z): film x = s (X - X0), col = 500 + 100000 x, and likewise y and row.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "imageblock/pane_renderer.h"
#include "matching/raw_window.h"
#include "platform/run_time_error.h"
#include "solver/camera_model.h"

namespace sylvomex {

inline ImageRecord Test_Photo() {
  ImageRecord image;
  image.ImageId = 17;
  image.FullWidth = 1000;
  image.FullHeight = 1001;
  image.SubWidth = image.SubHeight = 1000;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 100000;
  image.AffineA0 = image.AffineB0 = 500;
  image.Z0 = 1000;
  return image;
}

inline Camera Upright(const ImageRecord& image) {
  return Make_Camera(image, {1, 0, 0, 0, 1, 0, 0, 0, 1});
}

/// Grey value of a raw pixel, never 0.
inline std::uint8_t Grey_At(int col, int raw_row) {
  return static_cast<std::uint8_t>(1 + (7 * col + 13 * raw_row) % 250);
}

/// Raw bytes of the image: grey, or colour with red and blue different from the middle byte, which
/// is the grey value.
inline std::vector<std::uint8_t> Raw_Of(const ImageRecord& image) {
  std::vector<std::uint8_t> bytes;
  for (int row = 0; row < image.SubHeight; ++row) {
    for (int col = 0; col < image.SubWidth; ++col) {
      const std::uint8_t grey = Grey_At(col, row);
      if (image.ColorFlag == 1) bytes.push_back(static_cast<std::uint8_t>(grey / 2));
      bytes.push_back(grey);
      if (image.ColorFlag == 1) bytes.push_back(3);
    }
  }
  return bytes;
}

inline RawPixels Pixels_Of(const ImageRecord& image, const std::vector<std::uint8_t>& bytes) {
  return {bytes, image.SubWidth, image.SubHeight, nullptr};
}

template <class Call>
std::string Failure_Of(Failure kind, Call&& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(Failure_Text(error.Kind()), Failure_Text(kind)) << error.what();
    return error.what();
  }
  ADD_FAILURE() << "no failure";
  return {};
}

}  // namespace sylvomex
