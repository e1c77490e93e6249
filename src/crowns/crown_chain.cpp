// SPDX-License-Identifier: MIT
#include "crowns/crown_chain.h"

#include <cmath>
#include <optional>
#include <string>

#include "crowns/species.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kLowerShare = 0.5;   // of the height; crowns end there
constexpr double kLargestMove = 0.6;  // of the axis
constexpr double kMemberShare = 0.7;  // of the height, above which echoes join late
constexpr double kLeastMemberDepth = 0.01;
constexpr double kMemberDepthOffset = 0.001;

void Add(const CrownEcho& echo, const LidarPoint& point, GrownCrown& grown) {
  grown.radial.push_back(echo.radial);
  grown.depth.push_back(echo.depth);
  grown.sum_X += point.X;
  grown.sum_Y += point.Y;
  ++grown.echoes;
}

void Move_Axis_A_Little(CrownRecord& crown, const GrownCrown& grown) {
  const double X = grown.sum_X / grown.echoes;
  const double Y = grown.sum_Y / grown.echoes;
  if (std::fabs(X - crown.X) < kLargestMove) crown.X = X;
  if (std::fabs(Y - crown.Y) < kLargestMove) crown.Y = Y;
}

void Join_Late_Echoes(CrownEchoes& echoes, FittedCrown& fitted) {
  fitted.crown.PointCount +=
      static_cast<std::int32_t>(Take_Late_Echoes(echoes, fitted.crown).size());
}

FittedCrown First_Crown(CrownEchoes& echoes, int species, const CrownSolver& solve) {
  const std::int32_t seed = echoes.Count() - 1;
  Require_Seed(seed);
  FittedCrown fitted{Crown_On(echoes.At(seed)), 0};
  echoes.Use(seed);
  Set_Shape(fitted.crown, Start_Shape(species));
  const GrownCrown grown = Grow_Crown(echoes, 1, fitted.crown, 1, {});
  fitted.crown.PointCount = 1 + grown.echoes;
  fitted.rmse = Fit_First_Shape(fitted.crown, grown, solve).rmse;
  return fitted;
}

std::optional<FittedCrown> Next_Crown(CrownEchoes& echoes, int number, int species,
                                      const CrownSolver& solve) {
  const std::optional<std::int32_t> seed = echoes.Next_Seed(kSeedMinHeight);
  if (!seed) return std::nullopt;
  FittedCrown fitted{Crown_On(echoes.At(*seed)), 0};
  echoes.Use(*seed);
  Set_Shape(fitted.crown, Start_Shape(species));
  const GrownCrown grown = Grow_Crown(echoes, number, fitted.crown, 0, {});
  fitted.crown.PointCount = grown.echoes;
  if (grown.echoes < kLeastCrownPoints) return std::nullopt;
  const CrownFit fit = Fit_Next_Shape(fitted.crown, grown, solve);
  if (fit.verdict != CrownVerdict::Fitted) return std::nullopt;
  fitted.rmse = fit.rmse;
  return fitted;
}

}  // namespace

CrownRecord Crown_On(const GroundedEcho& seed) {
  CrownRecord crown;
  crown.X = seed.point.X;
  crown.Y = seed.point.Y;
  crown.TopZ = seed.point.Z;
  crown.Height = seed.Normal_Height();
  return crown;
}

void Require_Seed(std::int32_t seed) {
  if (seed >= 0) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "the area has no lidar echo that could seed its first crown");
}

void Refuse_Crown(int number, const CrownRecord& crown, const std::string& cause) {
  throw RunTimeError(Failure::SubscriptOutOfRange, "crown " + std::to_string(number) + " at " +
                                                       Format(crown.X, "0.00") + ", " +
                                                       Format(crown.Y, "0.00") + ": " + cause);
}

void Require_Crown_Room(int number, const CrownRecord& crown, std::size_t count) {
  if (count <= kCrownPointLimit) return;
  Refuse_Crown(
      number, crown,
      "more echoes than the " + std::to_string(kCrownPointLimit) + " that a crown has room for");
}

GrownCrown Grow_Crown(CrownEchoes& echoes, int number, const CrownRecord& crown,
                      std::size_t seed_rows, const EchoListener& listener) {
  GrownCrown grown;
  grown.radial.assign(seed_rows, 0);
  grown.depth.assign(seed_rows, 0);
  for (const CrownEcho& echo : echoes.Grow(crown, {.above = kLowerShare * crown.Height})) {
    const LidarPoint& point = echoes.At(echo.rank).point;
    Add(echo, point, grown);
    Require_Crown_Room(number, crown, grown.radial.size());
    if (listener) listener(point);
  }
  return grown;
}

CrownFit Fit_First_Shape(CrownRecord& crown, const GrownCrown& grown, const CrownSolver& solve) {
  CrownFit fit{Shape_Of(crown), kFirstTreeFit.first_counter, 0, CrownVerdict::Fitted};
  if (grown.echoes == 0) return fit;
  crown.X = grown.sum_X / grown.echoes;
  crown.Y = grown.sum_Y / grown.echoes;
  fit = Fit_Crown({grown.radial, grown.depth, crown.Height}, fit.shape, kFirstTreeFit, solve);
  Set_Shape(crown, fit.shape);
  return fit;
}

CrownFit Fit_Next_Shape(CrownRecord& crown, const GrownCrown& grown, const CrownSolver& solve) {
  Move_Axis_A_Little(crown, grown);
  const CrownFit fit =
      Fit_Crown({grown.radial, grown.depth, crown.Height}, Shape_Of(crown), kNextTreeFit, solve);
  Set_Shape(crown, fit.shape);
  return fit;
}

std::vector<CrownEcho> Take_Late_Echoes(CrownEchoes& echoes, const CrownRecord& crown) {
  return echoes.Grow(crown, {.above = kMemberShare * crown.Height,
                             .least_depth = kLeastMemberDepth,
                             .depth_offset = kMemberDepthOffset});
}

std::vector<FittedCrown> Fit_Crowns(CrownEchoes& echoes, int species, const CrownSolver& solve) {
  std::vector<FittedCrown> crowns{First_Crown(echoes, species, solve)};
  Join_Late_Echoes(echoes, crowns.back());
  for (int pass = 0; pass < kMoreCrownPasses; ++pass) {
    const int number = static_cast<int>(crowns.size()) + 1;
    const std::optional<FittedCrown> crown = Next_Crown(echoes, number, species, solve);
    if (!crown) continue;
    crowns.push_back(*crown);
    Join_Late_Echoes(echoes, crowns.back());
  }
  return crowns;
}

}  // namespace sylvomex
