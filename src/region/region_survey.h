// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "region/plan_record.h"
#include "region/task_store.h"

namespace sylvomex {

/// How far one task has come.
struct TaskStatus {
  const RegionTask* task = nullptr;
  std::optional<TaskReport> done;
  std::optional<TaskFailure> failed;  // none where it is done
  bool is_slow = false;               // more than three times the median of its kind
};

struct RegionSurvey {
  std::vector<TaskStatus> tasks;  // in the plan's order
  std::size_t done = 0, failed = 0, slow = 0;
  TaskSeconds seconds;  // sums
  std::uint64_t peak_memory_bytes = 0;
  std::string largest_task;

  [[nodiscard]] std::size_t Missing() const { return tasks.size() - done; }
};

/// The survey keeps pointers into the plan. Refused for results of another plan.
RegionSurvey Survey_Region(const RegionPlan& plan, const TaskStore& store);

/// The report as text, as a page, and its map as a picture (SVG): tasks that are done, slow, failed
/// and not yet done, and the tree tops found, world coordinates.
std::string Survey_Text(const RegionPlan& plan, const RegionSurvey& survey);
std::string Survey_Html(const RegionPlan& plan, const RegionSurvey& survey,
                        const std::vector<Point3D>& tops);
std::string Survey_Map(const RegionPlan& plan, const RegionSurvey& survey,
                       const std::vector<Point3D>& tops);

}  // namespace sylvomex
