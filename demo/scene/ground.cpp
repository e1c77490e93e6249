// SPDX-License-Identifier: MIT
#include "demo/scene/ground.h"

#include <array>
#include <numbers>

#include "demo/scene/counter_random.h"
#include "demo/scene/site_settings.h"

namespace sylvomex::demo {
namespace {

constexpr double kMeanHeight = 160;
constexpr double kReach = 300;       // beyond the forest square
constexpr double kWaveOrigin = 150;  // west and south of the forest square
constexpr std::uint64_t kStream = 1;

struct Wave {
  double amplitude = 0;             // metres
  double along_x = 0, along_y = 0;  // radians a metre
  double phase = 0;
};

/// Amplitudes sum to 14 m, so the ground stays within 146 to 174 m.
std::array<Wave, 6> Make_Waves(std::uint64_t seed) {
  constexpr std::array<std::array<double, 2>, 6> amplitude_and_length = {
      {{6.0, 420}, {3.5, 270}, {2.0, 160}, {1.3, 105}, {0.8, 70}, {0.4, 38}}};
  RandomDraws draws{Stream_Key(seed, kStream)};
  std::array<Wave, 6> waves;
  for (std::size_t i = 0; i < waves.size(); ++i) {
    const double direction = draws.Uniform(0, 2 * std::numbers::pi);
    const double number = 2 * std::numbers::pi / amplitude_and_length[i][1];
    waves[i] = {amplitude_and_length[i][0], number * std::cos(direction),
                number * std::sin(direction), draws.Uniform(0, 2 * std::numbers::pi)};
  }
  return waves;
}

/// Metres east and north of the waves' origin.
double Height_Of(const std::array<Wave, 6>& waves, double x, double y) {
  double height = kMeanHeight;
  for (const Wave& wave : waves) {
    height += wave.amplitude * std::sin(wave.along_x * x + wave.along_y * y + wave.phase);
  }
  return height;
}

double Steepest_Slope(const Ground& ground) {
  double steepest = 0;
  for (int j = 0; j + 1 < ground.side; ++j) {
    for (int i = 0; i + 1 < ground.side; ++i) {
      const auto at = static_cast<std::size_t>(j) * static_cast<std::size_t>(ground.side) +
                      static_cast<std::size_t>(i);
      const double dx = ground.heights[at + 1] - ground.heights[at];
      const double dy =
          ground.heights[at + static_cast<std::size_t>(ground.side)] - ground.heights[at];
      steepest = std::max(steepest, std::hypot(dx, dy) / ground.spacing);
    }
  }
  return steepest;
}

}  // namespace

Ground Make_Ground(std::uint64_t seed) {
  const std::array<Wave, 6> waves = Make_Waves(seed);
  Ground ground;
  ground.west = kForestWest - kReach;
  ground.south = kForestSouth - kReach;
  ground.side = static_cast<int>((kForestSide + 2 * kReach) / ground.spacing) + 1;
  for (int j = 0; j < ground.side; ++j) {
    for (int i = 0; i < ground.side; ++i) {
      ground.heights.push_back(Height_Of(waves, kWaveOrigin - kReach + i * ground.spacing,
                                         kWaveOrigin - kReach + j * ground.spacing));
    }
  }
  ground.steepest = Steepest_Slope(ground);
  return ground;
}

}  // namespace sylvomex::demo
