// SPDX-License-Identifier: MIT
// A few long computations of different kinds, side by side.
#pragma once

#include <functional>

namespace sylvomex {

/// Calls task(0) ... task(count - 1), each once, on all threads, in any order. Unlike those of
/// Run_Tasks, the tasks may have meters of their own (WorkMeter::Task, ManySteps): when whoever
/// watches the calling thread cancels the work, tasks on other threads end at their next look, too,
/// and the calling thread goes on looking while it waits for them. An exception that leaves a task
/// is thrown here once all have ended.
void Run_Long_Tasks(int count, const std::function<void(int)>& task);

}  // namespace sylvomex
