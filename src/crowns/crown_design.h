// SPDX-License-Identifier: MIT
// The linearised problem of a crown's fit: one row an echo, columns a, p and b.
#pragma once

#include <span>
#include <vector>

#include "closedlib/crown_solver.h"
#include "crowns/crown_profile.h"

namespace sylvomex {

/// The echoes of a crown as the fit sees them. Sines and logarithms depend on the depths alone
/// and serve all iterations.
class CrownObservations {
 public:
  /// Radial distances and depths of the echoes, metres, as many of each; the height of the tree.
  CrownObservations(std::span<const float> radial, std::span<const float> depth, double height);

  [[nodiscard]] std::size_t Count() const { return rows_.size(); }
  [[nodiscard]] double Height() const { return height_; }

  struct Row {
    double radial = 0;
    double sine = 0;       // sin(4 d / H)
    double logarithm = 0;  // ln sin(4 (d + 0.01) / H)
  };
  [[nodiscard]] std::span<const Row> Rows() const { return rows_; }

 private:
  std::vector<Row> rows_;
  double height_;
};

struct CrownDesign {
  CrownProblem problem;
  double rmse = 0;  // of the misclosures, metres
};

/// With s = sin(4 d / H), row i is s^p H, s^p (H a) ln(sin(4 (d + 0.01) / H)), 1: the offset of
/// 0.01 m keeps the logarithm of the top finite and stands in no other place. The model r(d) is
/// kept to single precision; misclosure = radial - model.
void Build_Crown_Design(const CrownObservations& observations, const CrownShape& shape,
                        CrownDesign& design);

}  // namespace sylvomex
