// SPDX-License-Identifier: MIT
#include "commands/crowns/fit_next_crown.h"

#include "state/workspace.h"

#include <string>

#include "commands/crowns/crown_inputs.h"
#include "crowns/crown_chain.h"
#include "crowns/species.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "services/status_line.h"

namespace sylvomex {
namespace {

constexpr int kViewImage = 1;  // in which seeds are sampled and echoes shown
constexpr Colour kGrownEcho{255, 156, 60};

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

GrownCrown Grow_In_View(Workspace& w, CrownEchoes& echoes, int number, const CrownRecord& crown,
                        std::size_t seed_rows) {
  return Grow_Crown(echoes, number, crown, seed_rows,
                    [&w](const LidarPoint& point) { Show_Grown_Echo(w, point); });
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
    Refuse_Crown(number, crown, "the table of trees has room for " + std::to_string(kMaxTrees));
  }
  return number;
}

}  // namespace

std::string Fit_Text(const CrownFit& fit) {
  return Plain_Text(fit.counter) + " RMSE " + Format(fit.rmse, "0.00 m");
}

std::string Fit_Text(const CrownFit& fit, std::int32_t points) {
  return Fit_Text(fit) + " in " + Plain_Text(points) + " points";
}

FittedTree Fit_First_Crown(Workspace& w, CrownEchoes& echoes, const CrownSolver& solve) {
  const std::int32_t seed = echoes.Count() - 1;
  Require_Seed(seed);
  CrownRecord crown = Crown_On(echoes.At(seed));
  crown.PointCount = 1;
  echoes.Use(seed);
  const int species = Start_By_Species(w, crown);
  const GrownCrown grown = Grow_In_View(w, echoes, 1, crown, 1);
  crown.PointCount += grown.echoes;
  const CrownFit fit = Fit_First_Shape(crown, grown, solve);
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
  CrownRecord crown = Crown_On(echoes.At(*seed));
  const int number = Next_Number(w, crown);
  w.Crowns.CrownTrees(number) = crown;
  echoes.Use(*seed);
  w.screen->Service_Events();
  const int species = Start_By_Species(w, crown);
  const GrownCrown grown = Grow_In_View(w, echoes, number, crown, 0);
  crown.PointCount = grown.echoes;
  w.Crowns.CrownTrees(number) = crown;
  if (crown.PointCount < kLeastCrownPoints) {
    Show_Status(w, "Fitting FAIL, too few points: " + Plain_Text(crown.PointCount));
    return std::nullopt;
  }
  const CrownFit fit = Fit_Next_Shape(crown, grown, solve);
  w.Crowns.CrownTrees(number) = crown;
  Show_Verdict(w, fit, crown.PointCount);
  if (fit.verdict != CrownVerdict::Fitted) return std::nullopt;
  w.Crowns.TreeCount = number;
  return FittedTree{number, species, fit.rmse};
}

}  // namespace sylvomex
