// SPDX-License-Identifier: MIT
// A triangulated model of 199,712 triangles over 1000 x 1000 m and a million points on it, from the
// random words of bench_inputs.h.
#pragma once

#include <cstdint>
#include <vector>

#include "bench_inputs.h"
#include "heightmodels/tin_model.h"

namespace sylvomex::bench {

inline constexpr double kTinX = 2515000, kTinY = 6859000;  // south-west corner
inline constexpr double kTinSide = 1000;                   // metres
inline constexpr int kNodesALine = 317;
inline constexpr std::size_t kPlaces = 1'000'000;

/// A grid of nodes; inner nodes are displaced by up to 0.4 of the spacing.
inline std::vector<TinNode> Tin_Nodes() {
  constexpr double kSpacing = kTinSide / (kNodesALine - 1);
  const auto shift = [](int line, std::uint64_t word) {
    const bool inside = line > 0 && line < kNodesALine - 1;
    return inside ? (Random_Unit(31, word) - 0.5) * 0.8 * kSpacing : 0.0;
  };
  std::vector<TinNode> nodes;
  for (int row = 0; row < kNodesALine; ++row) {
    for (int col = 0; col < kNodesALine; ++col) {
      const std::uint64_t id = nodes.size();
      const double x = col * kSpacing + shift(col, 2 * id);
      const double y = row * kSpacing + shift(row, 2 * id + 1);
      const int noise = Value_Noise(32, static_cast<int>(4 * x), static_cast<int>(4 * y), 5);
      nodes.push_back({0, kTinX + x, kTinY + y, 160.0 + 0.1 * noise});
    }
  }
  return nodes;
}

/// A million random points, uniform over the model.
inline std::vector<MapPoint> Random_Places() {
  std::vector<MapPoint> places(kPlaces);
  for (std::size_t i = 0; i < kPlaces; ++i) {
    places[i] = {kTinX + 1e-3 + (kTinSide - 2e-3) * Random_Unit(33, 2 * i),
                 kTinY + 1e-3 + (kTinSide - 2e-3) * Random_Unit(33, 2 * i + 1)};
  }
  return places;
}

/// The same number of points in scan lines.
inline std::vector<MapPoint> Scan_Places() {
  std::vector<MapPoint> places(kPlaces);
  for (std::size_t i = 0; i < kPlaces; ++i) {
    places[i] = {kTinX + 0.5 + static_cast<double>(i % 1000) * 0.999,
                 kTinY + 0.5 + static_cast<double>(i / 1000) * 0.999};
  }
  return places;
}

}  // namespace sylvomex::bench
