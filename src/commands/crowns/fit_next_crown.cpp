// SPDX-License-Identifier: MIT
#include "commands/crowns/fit_next_crown.h"

#include "state/workspace.h"

#include <cmath>
#include <string>

#include "commands/crowns/crown_inputs.h"
#include "crowns/species.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "services/status_line.h"

namespace sylvomex {
namespace {

constexpr int kViewImage = 1;  // in which seeds are sampled and echoes shown
constexpr Colour kGrownEcho{255, 156, 60};
constexpr double kLowerShare = 0.5;  // of the height; crowns end there
constexpr int kLeastPoints = 25;
constexpr double kLargestMove = 0.6;  // of the axis, metres

[[noreturn]] void Refuse(int number, const CrownRecord& crown, const std::string& cause) {
  throw RunTimeError(Failure::SubscriptOutOfRange, "crown " + std::to_string(number) + " at " +
                                                       Format(crown.X, "0.00") + ", " +
                                                       Format(crown.Y, "0.00") + ": " + cause);
}

CrownRecord Tree_On(const GroundedEcho& seed) {
  CrownRecord crown;
  crown.X = seed.point.X;
  crown.Y = seed.point.Y;
  crown.TopZ = seed.point.Z;
  crown.Height = seed.Normal_Height();
  return crown;
}

// The species that is ticked; the crown starts with its shape.
int Start_By_Species(Workspace& w, CrownRecord& crown) {
  w.Crowns.Seed = Sample_Crown_Colour(w, kViewImage, {crown.X, crown.Y, crown.TopZ});
  const int species = Get_Species(w);
  Set_Shape(crown, Start_Shape(species));
  return species;
}

void Show_Grown_Echo(Workspace& w, const LidarPoint& point) {
  const PanePosition at = Pane_Of_Point(w, kViewImage, {point.X, point.Y, point.Z});
  Picture& pane = w.Form1.Picture1(kViewImage);
  pane.DrawWidth = 1;
  Plot_Point(pane, at.px, at.py, kGrownEcho);
}

struct GrownCrown {
  std::vector<float> radial, depth;
  double sum_X = 0, sum_Y = 0;
  std::int32_t echoes = 0;

  void Add(const CrownEcho& echo, const LidarPoint& point) {
    radial.push_back(echo.radial);
    depth.push_back(echo.depth);
    sum_X += point.X;
    sum_Y += point.Y;
    ++echoes;
  }
};

// seed_rows: 1 where the seed itself stands first, at distance and depth 0.
GrownCrown Grow_In_View(Workspace& w, CrownEchoes& echoes, int number, const CrownRecord& crown,
                        std::size_t seed_rows) {
  GrownCrown grown;
  grown.radial.assign(seed_rows, 0);
  grown.depth.assign(seed_rows, 0);
  for (const CrownEcho& echo : echoes.Grow(crown, {.above = kLowerShare * crown.Height})) {
    const LidarPoint& point = echoes.At(echo.rank).point;
    grown.Add(echo, point);
    Require_Crown_Room(number, crown, grown.radial.size());
    Show_Grown_Echo(w, point);
  }
  return grown;
}

void Move_Axis_A_Little(CrownRecord& crown, const GrownCrown& grown) {
  const double X = grown.sum_X / grown.echoes;
  const double Y = grown.sum_Y / grown.echoes;
  if (std::fabs(X - crown.X) < kLargestMove) crown.X = X;
  if (std::fabs(Y - crown.Y) < kLargestMove) crown.Y = Y;
}

void Show_Verdict(Workspace& w, const CrownFit& fit, std::int32_t points) {
  switch (fit.verdict) {
    case CrownVerdict::Fitted:
      w.Form1.Label10.FontSize = 8;
      return Show_Status(w, "Done Fitting, iterations: " + Fit_Text(fit, points));
    case CrownVerdict::CrownRatio:
      return Show_Status(w, "Fitting FAIL/CROWN RATIO: " + Fit_Text(fit, points));
    case CrownVerdict::NotSolvable:
    case CrownVerdict::LargeRmse:
      return Show_Status(w, "Fitting FAIL, iterations: " + Fit_Text(fit, points));
  }
}

// A tree number that is free.
int Next_Number(const Workspace& w, const CrownRecord& crown) {
  const int number = w.Crowns.TreeCount + 1;
  if (number > kMaxTrees) {
    Refuse(number, crown, "the table of trees has room for " + std::to_string(kMaxTrees));
  }
  return number;
}

}  // namespace

void Require_Crown_Room(int number, const CrownRecord& crown, std::size_t count) {
  if (count <= kCrownPointLimit) return;
  Refuse(number, crown,
         "more echoes than the " + std::to_string(kCrownPointLimit) + " that a crown has room for");
}

std::string Fit_Text(const CrownFit& fit) {
  return Plain_Text(fit.counter) + " RMSE " + Format(fit.rmse, "0.00 m");
}

std::string Fit_Text(const CrownFit& fit, std::int32_t points) {
  return Fit_Text(fit) + " in " + Plain_Text(points) + " points";
}

FittedTree Fit_First_Crown(Workspace& w, CrownEchoes& echoes, const CrownSolver& solve) {
  const std::int32_t seed = echoes.Count() - 1;
  if (seed < 0) {
    throw RunTimeError(Failure::SubscriptOutOfRange,
                       "the area has no lidar echo that could seed its first crown");
  }
  CrownRecord crown = Tree_On(echoes.At(seed));
  crown.PointCount = 1;
  echoes.Use(seed);
  const int species = Start_By_Species(w, crown);
  const GrownCrown grown = Grow_In_View(w, echoes, 1, crown, 1);
  crown.PointCount += grown.echoes;
  CrownFit fit{Shape_Of(crown), kFirstTreeFit.first_counter, 0, CrownVerdict::Fitted};
  if (grown.echoes > 0) {
    crown.X = grown.sum_X / grown.echoes;
    crown.Y = grown.sum_Y / grown.echoes;
    fit = Fit_Crown({grown.radial, grown.depth, crown.Height}, fit.shape, kFirstTreeFit, solve);
    Set_Shape(crown, fit.shape);
  }
  w.Crowns.CrownTrees(1) = crown;
  w.Crowns.TreeCount = 1;
  if (fit.verdict == CrownVerdict::NotSolvable) {
    Show_Verdict(w, fit, crown.PointCount);
  } else {
    Show_Status(w, "Done Fitting, iterations: " + Fit_Text(fit));
  }
  return {1, species, fit.rmse};
}

std::optional<FittedTree> Fit_Next_Crown(Workspace& w, CrownEchoes& echoes, double lowest_seed,
                                         const CrownSolver& solve) {
  const std::optional<std::int32_t> seed = echoes.Next_Seed(lowest_seed);
  if (!seed) return std::nullopt;
  CrownRecord crown = Tree_On(echoes.At(*seed));
  const int number = Next_Number(w, crown);
  w.Crowns.CrownTrees(number) = crown;
  echoes.Use(*seed);
  w.screen->Service_Events();
  const int species = Start_By_Species(w, crown);
  const GrownCrown grown = Grow_In_View(w, echoes, number, crown, 0);
  crown.PointCount = grown.echoes;
  w.Crowns.CrownTrees(number) = crown;
  if (crown.PointCount < kLeastPoints) {
    Show_Status(w, "Fitting FAIL, too few points: " + Plain_Text(crown.PointCount));
    return std::nullopt;
  }
  Move_Axis_A_Little(crown, grown);
  const CrownFit fit =
      Fit_Crown({grown.radial, grown.depth, crown.Height}, Shape_Of(crown), kNextTreeFit, solve);
  Set_Shape(crown, fit.shape);
  w.Crowns.CrownTrees(number) = crown;
  Show_Verdict(w, fit, crown.PointCount);
  if (fit.verdict != CrownVerdict::Fitted) return std::nullopt;
  w.Crowns.TreeCount = number;
  return FittedTree{number, species, fit.rmse};
}

}  // namespace sylvomex
