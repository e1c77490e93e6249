// SPDX-License-Identifier: MIT
#include "platform/many_steps.h"

#include <gtest/gtest.h>

#include <vector>

namespace sylvomex {
namespace {

struct Shares : WorkWatcher {
  std::vector<double> seen;
  void Look(double done) override { seen.push_back(done); }
};

TEST(ManySteps, AreLookedAtSeldomAndUncounted) {
  Shares watcher;
  const WatchedWork watched(&watcher);
  const long before = Work_Steps();
  ManySteps steps(4.0 * ManySteps::kStepsOfALook);
  for (std::uint64_t k = 0; k < 2 * ManySteps::kStepsOfALook + 1; ++k) steps.Step();
  EXPECT_EQ(watcher.seen, (std::vector<double>{0.25, 0.5}));
  EXPECT_EQ(Work_Steps(), before);
}

TEST(ManySteps, MayBeMoreThanTold) {
  Shares watcher;
  const WatchedWork watched(&watcher);
  ManySteps steps(1);
  for (std::uint64_t k = 0; k < 2 * ManySteps::kStepsOfALook; ++k) steps.Step();
  EXPECT_EQ(watcher.seen, (std::vector<double>{1, 1}));
}

}  // namespace
}  // namespace sylvomex
