// SPDX-License-Identifier: MIT
#include "region/bundles.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace sylvomex {
namespace {

std::vector<RegionTask> Tasks(const std::vector<double>& costs) {
  std::vector<RegionTask> tasks;
  for (const double cost : costs) {
    RegionTask task;
    task.id = "t" + std::to_string(tasks.size());
    task.cost = cost;
    tasks.push_back(task);
  }
  return tasks;
}

TEST(EvenBundles, HoldEveryTaskOnceInItsOrder) {
  const auto tasks = Tasks(std::vector<double>(203, 1.0));
  std::vector<std::string> all;
  for (const auto& bundle : Even_Bundles(tasks, 50)) {
    EXPECT_FALSE(bundle.empty());
    all.insert(all.end(), bundle.begin(), bundle.end());
  }
  ASSERT_EQ(all.size(), tasks.size());
  for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ(all[i], tasks[i].id);
}

TEST(EvenBundles, OfEqualTasksDifferByOneTaskAtMost) {
  const auto bundles = Even_Bundles(Tasks(std::vector<double>(203, 1.0)), 50);
  ASSERT_EQ(bundles.size(), 5U);  // 203 / 50, rounded up
  for (const auto& bundle : bundles) EXPECT_NEAR(static_cast<double>(bundle.size()), 203 / 5.0, 1);
}

TEST(EvenBundles, WeighTasksByTheirCost) {
  // 30 heavy tasks of 10 and 70 light ones of 1: 370 over two bundles.
  std::vector<double> costs(30, 10.0);
  costs.resize(100, 1.0);
  const auto bundles = Even_Bundles(Tasks(costs), 50);
  ASSERT_EQ(bundles.size(), 2U);
  EXPECT_NEAR(static_cast<double>(bundles[0].size()), 18.5, 1);  // 185 / 10
}

TEST(EvenBundles, ATaskThatOutweighsAllOthersLeavesNoBundleEmpty) {
  const auto bundles = Even_Bundles(Tasks({1000, 1, 1, 1}), 1);
  ASSERT_EQ(bundles.size(), 4U);
  for (const auto& bundle : bundles) EXPECT_EQ(bundle.size(), 1U);
}

TEST(EvenBundles, OfNoTaskAreNone) { EXPECT_TRUE(Even_Bundles({}, 75).empty()); }

}  // namespace
}  // namespace sylvomex
