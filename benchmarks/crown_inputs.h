// SPDX-License-Identifier: MIT
// A stand of 50 m by 50 m as lidar echoes, 6 pulses a square metre, of crowns that the fit's own
// profile describes.
#pragma once

#include <vector>

#include "crowns/crown_echoes.h"
#include "crowns/crown_fit.h"

namespace sylvomex::bench {

struct CrownStand {
  std::vector<GroundedEcho> echoes;
  std::vector<std::int32_t> order;  // positions from 1, ascending by height
};
const CrownStand& Bench_Stand();

/// A crown that was grown, ready to be fitted.
struct GrownStandCrown {
  std::vector<float> radial, depth;
  double height = 0;
  CrownShape start;
};

/// Grows crowns on the seeds above 10 m until 300 have 25 echoes or more; those.
std::vector<GrownStandCrown> Grow_Stand(const CrownStand& stand);

/// The same crowns fitted one after the other; how many pass the checks.
int Fit_Stand(const std::vector<GrownStandCrown>& crowns, const CrownSolver& solve);

/// The misclosures' sum of squares at shapes that a peer found.
double Sum_Of_Squares(const GrownStandCrown& crown, const CrownShape& shape);

}  // namespace sylvomex::bench
