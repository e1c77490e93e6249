// SPDX-License-Identifier: MIT
// Value noise: random values on an integer lattice, interpolated smoothly (Lagae et al. 2010, "A
// survey of procedural noise functions", section 3.1). Values lie in [0, 1].
#pragma once

#include <cmath>
#include <cstdint>

#include "demo/scene/counter_random.h"

namespace sylvomex::demo {

namespace noise_detail {

inline constexpr std::uint64_t kStepX = 0x9E3779B97F4A7C15U;
inline constexpr std::uint64_t kStepY = 0xC2B2AE3D27D4EB4FU;
inline constexpr std::uint64_t kStepZ = 0x165667B19E3779F9U;

inline double Lattice_Value(std::uint64_t bits) {
  bits = (bits ^ (bits >> 29U)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 32U)) * 0x94D049BB133111EBU;
  return static_cast<double>(static_cast<std::int32_t>(bits >> 33U)) * 0x1.0p-31;
}

inline double Ease(double f) { return f * f * (3 - 2 * f); }

inline double Mix(double a, double b, double f) { return a + (b - a) * f; }

/// Interpolation in the lattice square with hash bits at its south-west corner, at the eased
/// fractions fx, fy.
inline double Square(std::uint64_t bits, double fx, double fy) {
  const double south = Mix(Lattice_Value(bits), Lattice_Value(bits + kStepX), fx);
  const double north = Mix(Lattice_Value(bits + kStepY), Lattice_Value(bits + kStepX + kStepY), fx);
  return Mix(south, north, fy);
}

inline std::uint64_t Step(double whole, std::uint64_t step) {
  return static_cast<std::uint64_t>(static_cast<std::int64_t>(whole)) * step;
}

}  // namespace noise_detail

/// Positions in lattice units.
inline double Value_Noise(std::uint64_t key, double x, double y) {
  using namespace noise_detail;
  const double wx = std::floor(x), wy = std::floor(y);
  return Square(key + Step(wx, kStepX) + Step(wy, kStepY), Ease(x - wx), Ease(y - wy));
}

inline double Value_Noise(std::uint64_t key, double x, double y, double z) {
  using namespace noise_detail;
  const double wx = std::floor(x), wy = std::floor(y), wz = std::floor(z);
  const std::uint64_t bits = key + Step(wx, kStepX) + Step(wy, kStepY) + Step(wz, kStepZ);
  const double fx = Ease(x - wx), fy = Ease(y - wy);
  return Mix(Square(bits, fx, fy), Square(bits + kStepZ, fx, fy), Ease(z - wz));
}

/// Octaves of halving size and weight, normalised to [0, 1].
inline double Fractal_Noise(std::uint64_t key, double x, double y, int octaves) {
  double sum = 0, weight = 1, weights = 0;
  for (int octave = 0; octave < octaves; ++octave) {
    sum += weight * Value_Noise(key + static_cast<std::uint64_t>(octave), x, y);
    weights += weight;
    weight *= 0.5;
    x = 2 * x + 17.3;
    y = 2 * y + 5.7;
  }
  return sum / weights;
}

}  // namespace sylvomex::demo
