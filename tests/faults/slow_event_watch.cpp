// SPDX-License-Identifier: MIT
#include "faults/slow_event_watch.h"

#include <condition_variable>
#include <iostream>
#include <mutex>
#include <thread>
#include <vector>

namespace sylvomex {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kLong{60};

/// The running events, the innermost last.
class RunningEvents {
 public:
  RunningEvents() : looker_([this](const std::stop_token& stop) { Look(stop); }) {}

  void Begin(const std::string& step) {
    const std::lock_guard lock(mutex_);
    steps_.push_back(step);
    begun_ = Clock::now();
  }
  void End() {
    const std::lock_guard lock(mutex_);
    steps_.pop_back();
    begun_ = Clock::now();
  }

 private:
  void Look(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (!stop.stop_requested()) {
      changed_.wait_for(lock, stop, std::chrono::seconds(1), [] { return false; });
      if (steps_.empty() || Clock::now() - begun_ < kLong) continue;
      std::cerr << "running for a minute:";
      for (const std::string& step : steps_) std::cerr << " | " << step;
      std::cerr << "\n" << std::flush;
      begun_ = Clock::now();
    }
  }

  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::vector<std::string> steps_;
  Clock::time_point begun_;
  std::jthread looker_;
};

RunningEvents& Running() {
  static RunningEvents running;
  return running;
}

}  // namespace

SlowEventWatch::SlowEventWatch(const std::string& step) : begun_(Clock::now()) {
  Running().Begin(step);
}

SlowEventWatch::~SlowEventWatch() { Running().End(); }

double SlowEventWatch::Seconds() const {
  return std::chrono::duration<double>(Clock::now() - begun_).count();
}

}  // namespace sylvomex
