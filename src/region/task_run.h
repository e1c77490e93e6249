// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "region/plan_record.h"
#include "region/task_store.h"

namespace sylvomex {

enum class TaskOutcome { Done, DoneBefore, DoneByAnother, Failed };

/// What became of a task.
struct TaskEnd {
  std::string task;
  TaskOutcome outcome = TaskOutcome::Done;
  std::string cause;  // of a failure
  double seconds = 0;
};

/// Does the tasks in their order, each whole or not at all; one that is done is passed over, one
/// that fails is noted and does not keep the others from being done. tell: called after each.
///
/// Refused for a task that the plan does not have and for results of another plan, before anything
/// is done. threads: at most so many at once, at least 1.
std::vector<TaskEnd> Run_Tasks(const RegionPlan& plan, const TaskStore& store,
                               std::span<const std::string> tasks, int threads,
                               const std::function<void(const TaskEnd&)>& tell);

}  // namespace sylvomex
