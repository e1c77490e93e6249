// SPDX-License-Identifier: MIT
#include "region/bundles.h"

#include <algorithm>

namespace sylvomex {

std::vector<std::vector<std::string>> Even_Bundles(const std::vector<RegionTask>& tasks, int size) {
  const std::size_t count = (tasks.size() + static_cast<std::size_t>(std::max(size, 1)) - 1) /
                            static_cast<std::size_t>(std::max(size, 1));
  double whole = 0;
  for (const RegionTask& task : tasks) whole += task.cost;
  std::vector<std::vector<std::string>> bundles;
  double before = 0;
  for (std::size_t i = 0; i < tasks.size(); ++i) {
    const double middle = before + tasks[i].cost / 2;
    const auto share = static_cast<double>(bundles.size()) / static_cast<double>(count) * whole;
    const std::size_t left = tasks.size() - i;
    const bool begins = bundles.empty() || (bundles.size() < count && middle >= share) ||
                        left == count - bundles.size();
    if (begins && bundles.size() < count) bundles.emplace_back();
    bundles.back().push_back(tasks[i].id);
    before += tasks[i].cost;
  }
  return bundles;
}

}  // namespace sylvomex
