// SPDX-License-Identifier: MIT
#include "overlays/plot_geometry.h"

#include <cmath>

#include "closedlib/counted_loop.h"

namespace sylvomex {
namespace {

constexpr double kSpacing = 100;  // metres
constexpr int kCells = 8;         // along each side of the grid
constexpr int kHalfCells = kCells / 2;

double Grid_Origin(double centre) {
  return std::floor((centre + kSpacing / 2 - kHalfCells * kSpacing) / kSpacing) * kSpacing;
}

PlanLine Grid_Line(PlanPosition start, double step_X, double step_Y) {
  PlanLine line;
  for (int i = 0; i <= kCells; ++i) line.push_back({start.X + i * step_X, start.Y + i * step_Y});
  return line;
}

}  // namespace

std::vector<PlanLine> Hundred_Metre_Grid(double X, double Y) {
  const PlanPosition corner{Grid_Origin(X), Grid_Origin(Y)};
  std::vector<PlanLine> lines;
  for (int i = 0; i <= kCells; ++i) {
    lines.push_back(Grid_Line({corner.X + i * kSpacing, corner.Y}, 0, kSpacing));
  }
  for (int i = 0; i <= kCells; ++i) {
    lines.push_back(Grid_Line({corner.X, corner.Y + i * kSpacing}, kSpacing, 0));
  }
  return lines;
}

PlanLine Circular_Plot(double X, double Y) {
  constexpr double kRadius = 11.28;     // metres
  constexpr double kHalfCircle = 3.14;  // radians
  constexpr double kStep = kHalfCircle / 16;
  const int vertices = Loop_Passes(-kHalfCircle, kHalfCircle, kStep);
  PlanLine circle;
  for (int i = 0; i < vertices; ++i) {
    const double t = -kHalfCircle + i * kStep;
    circle.push_back({X + kRadius * std::cos(t), Y + kRadius * std::sin(t)});
  }
  return circle;
}

}  // namespace sylvomex
