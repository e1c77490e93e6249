// SPDX-License-Identifier: MIT
#include <Eigen/Dense>

#include "crown_peers.h"

namespace sylvomex::bench {
namespace {

using Design = Eigen::Map<const Eigen::Matrix<double, Eigen::Dynamic, 3, Eigen::RowMajor>>;

Design Design_Of(const CrownProblem& problem) {
  return {problem.rows.front().data(), static_cast<Eigen::Index>(problem.rows.size()), 3};
}

Eigen::Map<const Eigen::VectorXd> Misclosure_Of(const CrownProblem& problem) {
  return {problem.misclosure.data(), static_cast<Eigen::Index>(problem.misclosure.size())};
}

CrownRow Row_Of(const Eigen::Vector3d& x) { return {x[0], x[1], x[2]}; }

}  // namespace

CrownSolver Eigen_QR() {
  return [](const CrownProblem& problem) -> std::optional<CrownRow> {
    const Eigen::Vector3d x =
        Design_Of(problem).colPivHouseholderQr().solve(Misclosure_Of(problem));
    return Row_Of(x);
  };
}

CrownSolver Eigen_Normal() {
  return [](const CrownProblem& problem) -> std::optional<CrownRow> {
    const Design design = Design_Of(problem);
    const Eigen::Matrix3d normal = design.transpose() * design;
    const Eigen::Vector3d right = design.transpose() * Misclosure_Of(problem);
    return Row_Of(normal.ldlt().solve(right));
  };
}

}  // namespace sylvomex::bench
