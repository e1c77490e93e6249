// SPDX-License-Identifier: MIT
// The fits of the same crowns by other libraries.
#pragma once

#include <vector>

#include "crown_inputs.h"

namespace sylvomex::bench {

/// Our iteration with the linearised problem solved by Eigen, by QR or by the normal equations.
CrownSolver Eigen_QR();
CrownSolver Eigen_Normal();

/// Levenberg-Marquardt with analytical derivatives by Ceres, dense QR or dense normal equations.
enum class CeresMethod { QR, Normal };
std::vector<CrownShape> Fit_By_Ceres(const std::vector<GrownStandCrown>& crowns,
                                     CeresMethod method);

}  // namespace sylvomex::bench
