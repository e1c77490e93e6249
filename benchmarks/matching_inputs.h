// SPDX-License-Identifier: MIT
// Inputs of the tree-top matching kernels, from the random words of bench_inputs.h.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "bench_inputs.h"
#include "closedlib/back_projection.h"
#include "platform/huge_pages.h"
#include "platform/zeroed_array.h"
#include "solver/camera_model.h"

namespace sylvomex::bench {

/// A grey texture: 5/8 noise of 32-pixel cells, 2/8 of 8-pixel cells, 1/8 white noise.
/// hard: with a constant block and a block of two levels.
inline std::vector<std::uint8_t> Grey_Patch(int width, int height, bool hard = false) {
  std::vector<std::uint8_t> patch;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int white = static_cast<int>(Random_Word(4, Plane_Index(x, y)) & 255U);
      int value = (Value_Noise(2, x, y, 5) * 5 + Value_Noise(3, x, y, 3) * 2 + white) >> 3;
      const auto within = [&](int first, int last) {
        return hard && x >= first && x < last && y >= first && y < last;
      };
      if (within(100, 300)) value = 40;
      if (within(700, 900)) value = 250 + white % 2;
      patch.push_back(static_cast<std::uint8_t>(value));
    }
  }
  return patch;
}

/// A side x side template cut around a patch pixel; 0 outside the ellipse, at least 1 inside.
inline std::vector<std::uint8_t> Ellipse_Template(const std::vector<std::uint8_t>& patch,
                                                  int patch_width, int col, int row, int side) {
  std::vector<std::uint8_t> pattern;
  for (int dy = -(side / 2); dy <= side / 2; ++dy) {
    for (int dx = -(side / 2); dx <= side / 2; ++dx) {
      const auto at = static_cast<std::size_t>((row + dy) * patch_width + col + dx);
      const bool inside = 4 * dx * dx + 4 * dy * dy <= side * side;
      pattern.push_back(inside ? std::max<std::uint8_t>(1, patch[at]) : std::uint8_t{0});
    }
  }
  return pattern;
}

inline constexpr double kPlotX = 2515000, kPlotY = 6859000, kPlotZ = 165;

/// Columns of 45 points, 0.5 m apart in X, Y and Z, around the plot centre.
inline std::vector<Point3D> Mesh(std::size_t count) {
  std::vector<Point3D> mesh(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t column = i / 45;
    mesh[i].X = kPlotX - 26.25 + 0.5 * static_cast<double>(column / 105);
    mesh[i].Y = kPlotY - 26.0 + 0.5 * static_cast<double>(column % 105);
    mesh[i].Z = kPlotZ + 0.02 * static_cast<double>(Random_Word(11, column) % 100) +
                0.5 * static_cast<double>(i % 45);
  }
  return mesh;
}

/// The points in the container that the workstation uses.
inline HugePageVector<Point3D> On_Huge_Pages(const std::vector<Point3D>& mesh) {
  return {mesh.begin(), mesh.end()};
}

/// One of five photographs from 1200 m above the plot, and the upper left pixel of its patch.
struct PatchCamera {
  Camera camera;
  PixelPosition first;
};

inline PatchCamera Patch_Camera(int k) {
  constexpr std::array<double, 5> kEast = {0, 260, -250, 30, -40};
  constexpr std::array<double, 5> kNorth = {0, 20, -30, 380, -370};
  const auto at = static_cast<std::size_t>(k);
  const double scale = 1 / 9e-6;
  Camera camera;
  camera.c = 0.1;
  camera.centre = {kPlotX + kEast[at], kPlotY + kNorth[at], kPlotZ + 1200};
  camera.m = Build_Rotation_Matrix(0.004 * (k - 2), -0.003 * (k - 1), 0.10 + 0.02 * k);
  camera.A1 = camera.B2 = scale;
  camera.A2 = 12;
  camera.A0 = 3750;
  camera.B1 = -12;
  camera.B0 = 5750;
  const auto [col, row] = Object_To_Pixel(camera, {kPlotX, kPlotY, kPlotZ});
  return {camera, {std::nearbyint(col) - 600, std::nearbyint(row) - 600 + kVolumeSide - 1}};
}

/// A volume whose images 0 to 4 hold smooth values from about -0.9 to 0.9. The noise is indexed
/// with rows counted from the patch's bottom.
inline ZeroedArray<double> Smooth_Volume() {
  ZeroedArray<double> volume(std::size_t{kVolumeImages} * kVolumeSide * kVolumeSide);
  for (int row = 0; row < kVolumeSide; ++row) {
    for (int col = 0; col < kVolumeSide; ++col) {
      const std::size_t at =
          static_cast<std::size_t>(col) + std::size_t{kVolumeSide} * static_cast<std::size_t>(row);
      for (std::size_t k = 0; k < 5; ++k) {
        const int noise = Value_Noise(900 + k, col, kVolumeSide - 1 - row, 4);
        volume[k + kVolumeImages * at] = (noise - 127.5) / 140.0;
      }
    }
  }
  return volume;
}

/// Scores from 0 to 2, bell-shaped distribution; entry 0 is unused.
inline std::vector<float> Scores(std::size_t count) {
  std::vector<float> scores(count + 1);
  for (std::size_t i = 0; i < count; ++i) {
    double sum = 0;
    for (std::size_t k = 0; k < 4; ++k) sum += Random_Unit(21, 4 * i + k);
    scores[i + 1] = static_cast<float>(0.5 * sum);
  }
  return scores;
}

}  // namespace sylvomex::bench
