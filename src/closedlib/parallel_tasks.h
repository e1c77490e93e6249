// SPDX-License-Identifier: MIT
// Independent tasks on one thread or on all threads.
#pragma once

#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include "platform/work_meter.h"

namespace sylvomex {

/// Maximum number of threads used by Run_Tasks.
inline int Thread_Count(int threads) {
  return threads == 1 ? 1 : tbb::this_task_arena::max_concurrency();
}

/// Calls task(0) ... task(count - 1), each once. threads: 1 runs them on the calling thread, in
/// order; 0 runs them on all threads, in any order. Whoever watches the calling thread sees how
/// many are done and can cancel the rest; tasks that have begun are ended first.
template <class Task>
void Run_Tasks(int count, int threads, const Task& task) {
  WorkMeter meter(count);
  const auto run = [&](int k) {
    task(k);
    meter.Task();
  };
  if (threads != 1 && count > 1) {
    tbb::parallel_for(0, count, run);
    return;
  }
  for (int k = 0; k < count; ++k) run(k);
}

}  // namespace sylvomex
