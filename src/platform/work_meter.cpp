// SPDX-License-Identifier: MIT
#include "platform/work_meter.h"

#include <algorithm>

namespace sylvomex {
namespace {

thread_local WorkWatcher* watcher = nullptr;
thread_local const WorkMeter* innermost = nullptr;
thread_local long steps = 0;

}  // namespace

WatchedWork::WatchedWork(WorkWatcher* watching) : outer_(watcher) { watcher = watching; }

WatchedWork::~WatchedWork() { watcher = outer_; }

bool Is_Work_Watched() { return watcher != nullptr; }

void Look_At_Work() {
  if (watcher == nullptr) return;
  ++steps;
  watcher->Look(innermost == nullptr ? -1 : innermost->Share());
}

long Work_Steps() { return steps; }

WorkMeter::WorkMeter(double total) : is_watched_(Is_Work_Watched()), total_(total) {
  if (!is_watched_) return;
  outer_ = innermost;
  innermost = this;
}

WorkMeter::~WorkMeter() {
  if (is_watched_) innermost = outer_;
}

double WorkMeter::Share() const {
  double share = 0;
  for (const WorkMeter* meter = this; meter != nullptr; meter = meter->outer_) {
    const double done = static_cast<double>(meter->done_.load(std::memory_order_relaxed)) + share;
    share = meter->total_ > 0 ? std::min(done / meter->total_, 1.0) : 1.0;
  }
  return share;
}

void WorkMeter::Count_Step() {
  done_.fetch_add(1, std::memory_order_relaxed);
  Look_At_Work();
}

void WorkMeter::Count_Task() {
  done_.fetch_add(1, std::memory_order_relaxed);
  if (watcher != nullptr) watcher->Look(Share());
}

}  // namespace sylvomex
