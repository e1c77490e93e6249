// SPDX-License-Identifier: MIT
#include "crown_inputs.h"

#include <cmath>
#include <random>

#include "solver/heapsort.h"

namespace sylvomex::bench {
namespace {

constexpr double kSide = 50;      // metres
constexpr double kDensity = 6;    // pulses a square metre
constexpr double kSpacing = 2.9;  // metres between trees
constexpr std::size_t kCrowns = 300;
constexpr std::size_t kLeastEchoes = 25;
constexpr double kNoise = 0.15;  // metres, of the crown's surface
constexpr CrownShape kTruth{0.055, 0.7, 0.5};
constexpr CrownShape kStart{0.06, 0.75, 0.6};  // of growing and fitting

struct StandTree {
  double X, Y, height;
};

std::vector<StandTree> Trees(std::mt19937& random) {
  std::uniform_real_distribution<double> height(17, 19), shift(-0.4, 0.4);
  std::vector<StandTree> trees;
  for (double Y = kSpacing / 2; Y < kSide; Y += kSpacing) {
    for (double X = kSpacing / 2; X < kSide; X += kSpacing) {
      trees.push_back({X + shift(random), Y + shift(random), height(random)});
    }
  }
  return trees;
}

// Height of the canopy over a place: that of the highest crown there, 0 between the crowns.
double Canopy(const std::vector<StandTree>& trees, double X, double Y) {
  double highest = 0;
  for (const StandTree& tree : trees) {
    const double distance = std::hypot(X - tree.X, Y - tree.Y);
    if (distance > 3) continue;
    for (double depth = 0; depth < 0.5 * tree.height; depth += 0.1) {
      if (Crown_Radius(kTruth, tree.height, depth) < distance) continue;
      highest = std::max(highest, tree.height - depth);
      break;
    }
  }
  return highest;
}

CrownStand Make_Stand() {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> place(0, kSide);
  std::normal_distribution<double> noise(0, kNoise);
  const std::vector<StandTree> trees = Trees(random);
  CrownStand stand;
  for (int i = 0; i < static_cast<int>(kSide * kSide * kDensity); ++i) {
    const double X = place(random), Y = place(random);
    const double above = Canopy(trees, X, Y) + noise(random);
    stand.echoes.push_back({{4, 2516400 + X, 6857000 + Y, static_cast<float>(100 + above)}, 100});
  }
  stand.order.resize(stand.echoes.size());
  std::vector<float> heights;
  for (const GroundedEcho& echo : stand.echoes) heights.push_back(echo.Normal_Height());
  Heapsort(static_cast<std::int32_t>(heights.size()), heights, stand.order,
           [](std::string_view) {});
  return stand;
}

}  // namespace

const CrownStand& Bench_Stand() {
  static const CrownStand stand = Make_Stand();
  return stand;
}

std::vector<GrownStandCrown> Grow_Stand(const CrownStand& stand) {
  CrownEchoes echoes(stand.echoes, stand.order);
  std::vector<GrownStandCrown> crowns;
  while (crowns.size() < kCrowns) {
    const auto seed = echoes.Next_Seed(10);
    if (!seed) break;
    const GroundedEcho& top = echoes.At(*seed);
    echoes.Use(*seed);
    CrownRecord crown{top.point.X, top.point.Y, top.point.Z, top.Normal_Height(), 0, 0, 0, 0};
    Set_Shape(crown, kStart);
    GrownStandCrown grown{{}, {}, crown.Height, kStart};
    for (const CrownEcho& echo : echoes.Grow(crown, {.above = 0.5 * crown.Height})) {
      grown.radial.push_back(echo.radial);
      grown.depth.push_back(echo.depth);
    }
    if (grown.radial.size() >= kLeastEchoes) crowns.push_back(std::move(grown));
  }
  return crowns;
}

int Fit_Stand(const std::vector<GrownStandCrown>& crowns, const CrownSolver& solve) {
  int fitted = 0;
  for (const GrownStandCrown& crown : crowns) {
    const CrownFit fit =
        Fit_Crown({crown.radial, crown.depth, crown.height}, crown.start, kNextTreeFit, solve);
    if (fit.verdict == CrownVerdict::Fitted) ++fitted;
  }
  return fitted;
}

double Sum_Of_Squares(const GrownStandCrown& crown, const CrownShape& shape) {
  double sum = 0;
  for (std::size_t i = 0; i < crown.radial.size(); ++i) {
    const double v = crown.radial[i] - Crown_Radius(shape, crown.height, crown.depth[i]);
    sum += v * v;
  }
  return sum;
}

}  // namespace sylvomex::bench
