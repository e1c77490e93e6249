// SPDX-License-Identifier: MIT
#include "closedlib/long_tasks.h"

#include <tbb/task_group.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>

#include "closedlib/parallel_tasks.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks{20};
constexpr double kManyLooks = 1e9;

/// Ends the work of a helping thread once the calling one has ended.
class StopWatcher : public WorkWatcher {
 public:
  explicit StopWatcher(const std::atomic<bool>& stop) : stop_(stop) {}

  void Look(double) override {
    if (stop_.load(std::memory_order_relaxed)) throw Cancelled{};
  }

 private:
  const std::atomic<bool>& stop_;
};

class LongTasks {
 public:
  LongTasks(int count, const std::function<void(int)>& task) : count_(count), task_(task) {}

  void Run() {
    for (int k = 1; k < count_; ++k) helpers_.run([this] { Help(); });
    try {
      WorkMeter meter(count_);
      while (Take_One()) meter.Task();
      Wait_For_Helpers();
    } catch (...) {
      stop_ = true;
      helpers_.wait();
      throw;
    }
    helpers_.wait();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  /// False when none is left.
  bool Take_One() {
    if (stop_) return false;
    const int k = next_.fetch_add(1);
    if (k >= count_) return false;
    task_(k);
    return true;
  }

  void Help() {
    Change_Helping(1);
    try {
      StopWatcher watcher(stop_);
      const WatchedWork watched(&watcher);
      while (Take_One()) {
      }
    } catch (const Cancelled&) {  // the calling thread throws its own
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!failure_) failure_ = std::current_exception();
      stop_ = true;
    }
    Change_Helping(-1);
  }

  void Change_Helping(int by) {
    const std::lock_guard lock(mutex_);
    helping_ += by;
    ended_.notify_one();
  }

  /// A helper that has not begun yet finds no task any more.
  void Wait_For_Helpers() {
    WorkMeter looks(kManyLooks);
    looks.Task();
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, kBetweenLooks, [this] { return helping_ == 0; })) {
      lock.unlock();
      looks.Task();
      lock.lock();
    }
  }

  const int count_;
  const std::function<void(int)>& task_;
  tbb::task_group helpers_;
  std::atomic<int> next_ = 0;
  std::atomic<bool> stop_ = false;
  std::mutex mutex_;
  std::condition_variable ended_;
  int helping_ = 0;             // helpers at work
  std::exception_ptr failure_;  // the first of a helper
};

}  // namespace

void Run_Long_Tasks(int count, const std::function<void(int)>& task) {
  if (!Is_Work_Watched()) return Run_Tasks(count, 0, task);
  LongTasks(count, task).Run();
}

}  // namespace sylvomex
