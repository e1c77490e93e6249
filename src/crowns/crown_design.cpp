// SPDX-License-Identifier: MIT
#include "crowns/crown_design.h"

#include <cmath>

namespace sylvomex {
namespace {

constexpr double kLogarithmOffset = 0.01;  // metres

}  // namespace

CrownObservations::CrownObservations(std::span<const float> radial, std::span<const float> depth,
                                     double height)
    : height_(height) {
  rows_.reserve(radial.size());
  for (std::size_t i = 0; i < radial.size(); ++i) {
    rows_.push_back({radial[i], Crown_Sine(height, depth[i]),
                     std::log(Crown_Sine(height, depth[i] + kLogarithmOffset))});
  }
}

void Build_Crown_Design(const CrownObservations& observations, const CrownShape& shape,
                        CrownDesign& design) {
  const double height = observations.Height();
  CrownProblem& problem = design.problem;
  problem.rows.resize(observations.Count());
  problem.misclosure.resize(observations.Count());
  double squares = 0;
  for (std::size_t i = 0; i < observations.Count(); ++i) {
    const CrownObservations::Row& row = observations.Rows()[i];
    const double power = std::pow(row.sine, shape.p);
    const double scaled = power * (height * shape.a);
    const auto model = static_cast<float>(scaled + shape.b);
    const double v = row.radial - static_cast<double>(model);
    squares += v * v;
    problem.rows[i] = {power * height, scaled * row.logarithm, 1};
    problem.misclosure[i] = v;
  }
  design.rmse = std::sqrt(squares / static_cast<double>(observations.Count()));
}

}  // namespace sylvomex
