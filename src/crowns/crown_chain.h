// SPDX-License-Identifier: MIT
// The crowns of an area from its lidar echoes, from the highest one down: the steps that the
// allometry command takes, and the whole fit as one function of echoes and numbers. Metres.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "crowns/crown_echoes.h"
#include "crowns/crown_fit.h"

namespace sylvomex {

/// Least height above the ground of an echo that seeds a crown.
inline constexpr double kSeedMinHeight = 10.0;

/// Seeds that are tried after the first crown.
inline constexpr int kMoreCrownPasses = 300;

/// Echoes of a crown below which it is not fitted.
inline constexpr std::int32_t kLeastCrownPoints = 25;

/// What a crown has gathered, echo by echo.
struct GrownCrown {
  std::vector<float> radial, depth;
  double sum_X = 0, sum_Y = 0;
  std::int32_t echoes = 0;
};

/// Told of every echo that joins a crown.
using EchoListener = std::function<void(const LidarPoint&)>;

/// A crown with its axis and its top on an echo, without a shape.
CrownRecord Crown_On(const GroundedEcho& seed);

/// Grows a crown of the given shape over the upper half of its height. number: for messages;
/// seed_rows: 1 where the seed itself stands first, at distance and depth 0, else 0.
/// RunTimeError(SubscriptOutOfRange) of Require_Crown_Room.
GrownCrown Grow_Crown(CrownEchoes& echoes, int number, const CrownRecord& crown,
                      std::size_t seed_rows, const EchoListener& listener);

/// Puts the axis of the first crown on the mean of its echoes and fits its shape; without echoes it
/// stays as it is.
CrownFit Fit_First_Shape(CrownRecord& crown, const GrownCrown& grown, const CrownSolver& solve);

/// Moves the axis of a later crown to the mean of its echoes where that is near, and fits its
/// shape.
CrownFit Fit_Next_Shape(CrownRecord& crown, const GrownCrown& grown, const CrownSolver& solve);

/// Takes the echoes of the upper part that lie within a fitted crown and were not its own yet.
std::vector<CrownEcho> Take_Late_Echoes(CrownEchoes& echoes, const CrownRecord& crown);

/// RunTimeError(SubscriptOutOfRange) naming the bound, the crown and its place for more echoes than
/// a crown has room for.
void Require_Crown_Room(int number, const CrownRecord& crown, std::size_t count);

/// The same kind of failure with another cause.
[[noreturn]] void Refuse_Crown(int number, const CrownRecord& crown, const std::string& cause);

/// RunTimeError(SubscriptOutOfRange) for the rank of the first crown's seed when there is none.
void Require_Seed(std::int32_t seed);

struct FittedCrown {
  CrownRecord crown;  // with the late echoes in its count
  double rmse = 0;
};

/// The crowns of an area, as the allometry command finds them. species: 1 to 4, 0 none; it gives
/// the shape that every fit starts from. RunTimeError(SubscriptOutOfRange) without an echo.
std::vector<FittedCrown> Fit_Crowns(CrownEchoes& echoes, int species, const CrownSolver& solve);

}  // namespace sylvomex
