// SPDX-License-Identifier: MIT
// Independent tasks on one thread or on all threads.
#pragma once

#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

namespace sylvomex {

/// Maximum number of threads used by Run_Tasks.
inline int Thread_Count(int threads) {
  return threads == 1 ? 1 : tbb::this_task_arena::max_concurrency();
}

/// Calls task(0) ... task(count - 1), each once. threads: 1 runs them on the calling thread, in
/// order; 0 runs them on all threads, in any order.
template <class Task>
void Run_Tasks(int count, int threads, const Task& task) {
  if (threads != 1 && count > 1) {
    tbb::parallel_for(0, count, task);
    return;
  }
  for (int k = 0; k < count; ++k) task(k);
}

}  // namespace sylvomex
