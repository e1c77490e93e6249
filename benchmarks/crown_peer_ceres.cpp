// SPDX-License-Identifier: MIT
#include <ceres/ceres.h>

#include <cmath>

#include "crown_peers.h"

namespace sylvomex::bench {
namespace {

// All echoes of a crown as one block of residuals: radius less distance.
class CrownCost : public ceres::CostFunction {
 public:
  explicit CrownCost(const GrownStandCrown& crown) : crown_(crown) {
    set_num_residuals(static_cast<int>(crown.radial.size()));
    *mutable_parameter_block_sizes() = {3};
    for (const float depth : crown.depth) sines_.push_back(Crown_Sine(crown.height, depth));
  }

  bool Evaluate(double const* const* parameters, double* residuals,
                double** jacobians) const override {
    const double *shape = parameters[0], height = crown_.height;
    double* rows = jacobians != nullptr ? jacobians[0] : nullptr;
    for (std::size_t i = 0; i < sines_.size(); ++i) {
      const double power = std::pow(sines_[i], shape[1]);
      const double scaled = power * height * shape[0];
      residuals[i] = scaled + shape[2] - static_cast<double>(crown_.radial[i]);
      if (rows == nullptr) continue;
      rows[3 * i] = power * height;
      rows[3 * i + 1] = sines_[i] > 0 ? scaled * std::log(sines_[i]) : 0;
      rows[3 * i + 2] = 1;
    }
    return true;
  }

 private:
  const GrownStandCrown& crown_;
  std::vector<double> sines_;
};

}  // namespace

std::vector<CrownShape> Fit_By_Ceres(const std::vector<GrownStandCrown>& crowns,
                                     CeresMethod method) {
  ceres::Solver::Options options;
  options.linear_solver_type =
      method == CeresMethod::QR ? ceres::DENSE_QR : ceres::DENSE_NORMAL_CHOLESKY;
  options.logging_type = ceres::SILENT;
  options.max_num_iterations = 20;
  std::vector<CrownShape> shapes;
  for (const GrownStandCrown& crown : crowns) {
    double x[3] = {crown.start.a, crown.start.p, crown.start.b};
    ceres::Problem problem;
    problem.AddResidualBlock(new CrownCost(crown), nullptr, x);
    problem.SetParameterLowerBound(x, 1, 0);
    ceres::Solver::Summary summary;
    ceres::Solve(options, &problem, &summary);
    shapes.push_back({x[0], x[1], x[2]});
  }
  return shapes;
}

}  // namespace sylvomex::bench
