// SPDX-License-Identifier: MIT
#include "closedlib/crown_solver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sylvomex {
namespace {

TEST(CrownSolver, SolvesThreeEquationsExactly) {
  // x + y + z = 6, 2 y - z = 1, x + 3 z = 10 have the solution 1, 2, 3.
  const CrownProblem problem{{{1, 1, 1}, {0, 2, -1}, {1, 0, 3}}, {6, 1, 10}};
  const auto x = MYFUNC_MATLABCALLNOMSGS(problem);
  ASSERT_TRUE(x);
  EXPECT_NEAR((*x)[0], 1, 1e-12);
  EXPECT_NEAR((*x)[1], 2, 1e-12);
  EXPECT_NEAR((*x)[2], 3, 1e-12);
}

TEST(CrownSolver, FitsAParabolaByLeastSquares) {
  // y = 1, 2, 2, 3, 9 at t = -2 to 2. With the polynomials orthogonal on these points, 1, t
  // and t^2 - 2: c2 = (2 - 2 - 4 - 3 + 18) / 14 = 11/14, c1 = (-2 - 2 + 3 + 18) / 10 = 17/10,
  // c0 = 17/5 - 2 c2.
  CrownProblem problem;
  const double y[] = {1, 2, 2, 3, 9};
  for (int t = -2; t <= 2; ++t) {
    problem.rows.push_back({static_cast<double>(t * t), static_cast<double>(t), 1});
    problem.misclosure.push_back(y[t + 2]);
  }
  const auto x = MYFUNC_MATLABCALLNOMSGS(problem);
  ASSERT_TRUE(x);
  EXPECT_NEAR((*x)[0], 11.0 / 14, 1e-12);
  EXPECT_NEAR((*x)[1], 1.7, 1e-12);
  EXPECT_NEAR((*x)[2], 3.4 - 2 * 11.0 / 14, 1e-12);
}

TEST(CrownSolver, ColumnsOfVeryDifferentSizesKeepTheirDigits) {
  CrownProblem problem;
  for (int i = 0; i < 20; ++i) {
    const double t = i;
    problem.rows.push_back({1e4 * t, 1e-3 * t * t, 1});
    problem.misclosure.push_back(1e4 * t * 2 + 1e-3 * t * t * 3 + 4);
  }
  const auto x = MYFUNC_MATLABCALLNOMSGS(problem);
  ASSERT_TRUE(x);
  EXPECT_NEAR((*x)[0], 2, 1e-12);
  EXPECT_NEAR((*x)[1], 3, 1e-6);  // it contributes only 1e-6 of the observations
  EXPECT_NEAR((*x)[2], 4, 1e-8);
}

TEST(CrownSolver, DependentColumnsHaveNoSolution) {
  const CrownProblem problem{{{1, 2, 1}, {2, 4, 1}, {3, 6, 1}, {4, 8, 1}}, {1, 2, 3, 4}};
  EXPECT_FALSE(MYFUNC_MATLABCALLNOMSGS(problem));
}

TEST(CrownSolver, TooFewRowsHaveNoSolution) {
  EXPECT_FALSE(MYFUNC_MATLABCALLNOMSGS({{{1, 2, 1}, {2, 1, 1}}, {1, 2}}));
  EXPECT_FALSE(MYFUNC_MATLABCALLNOMSGS({}));
}

TEST(CrownSolver, NaNHasNoSolution) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  for (const double bad : {nan, inf}) {
    EXPECT_FALSE(MYFUNC_MATLABCALLNOMSGS({{{1, 1, 1}, {0, 2, -1}, {1, 0, bad}}, {6, 1, 10}}));
    EXPECT_FALSE(MYFUNC_MATLABCALLNOMSGS({{{1, 1, 1}, {0, 2, -1}, {1, 0, 3}}, {6, bad, 10}}));
  }
}

}  // namespace
}  // namespace sylvomex
