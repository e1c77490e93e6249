// SPDX-License-Identifier: MIT
// How far a long computation is, for whoever watches the thread that began it, and the request to
// end it. Without a watcher a meter costs one comparison a step.
#pragma once

#include <atomic>

namespace sylvomex {

/// What a watcher throws to end the running command. It is no failure: the dispatcher passes it on
/// as EventOutcome::Cancelled, and nothing is reported.
struct Cancelled {};

/// Looks at the work of one thread.
class WorkWatcher {
 public:
  virtual ~WorkWatcher() = default;

  /// Called in the watched thread, after every step of every meter. done: the share of the
  /// outermost meter that is done, 0 to 1; below 0 where that is not known. May throw Cancelled.
  virtual void Look(double done) = 0;
};

/// The watcher of the calling thread, for the life of the object; nullptr for none. They nest.
class WatchedWork {
 public:
  explicit WatchedWork(WorkWatcher* watcher);
  ~WatchedWork();
  WatchedWork(const WatchedWork&) = delete;
  WatchedWork& operator=(const WatchedWork&) = delete;

 private:
  WorkWatcher* outer_;
};

/// Whether the calling thread is watched.
bool Is_Work_Watched();

/// A place in the calling thread where its command can be cancelled; a step without a meter.
void Look_At_Work();

/// Number of steps that the calling thread has counted while it was watched. Tasks that run on
/// several threads are not counted: with the same events it is the same in every run.
long Work_Steps();

/// A loop of a known number of steps. A meter that is made during a step of another one of the same
/// thread tells of the parts of that step.
class WorkMeter {
 public:
  /// total: number of steps; 0 for an empty loop.
  explicit WorkMeter(double total);
  ~WorkMeter();
  WorkMeter(const WorkMeter&) = delete;
  WorkMeter& operator=(const WorkMeter&) = delete;

  /// One more step is done; in the thread that made the meter.
  void Step() {
    if (is_watched_) Count_Step();
  }

  /// One more task is done; in any thread.
  void Task() {
    if (is_watched_) Count_Task();
  }

 private:
  friend void Look_At_Work();
  void Count_Step();
  void Count_Task();
  [[nodiscard]] double Share() const;

  const bool is_watched_;
  const double total_;
  const WorkMeter* outer_ = nullptr;
  std::atomic<long> done_{0};
};

/// Cancels the work of a thread at the first look after a number of its steps.
class CancelAfter : public WorkWatcher {
 public:
  explicit CancelAfter(long steps) : last_(Work_Steps() + steps) {}

  void Look(double) override {
    if (Work_Steps() >= last_) throw Cancelled{};
  }

 private:
  long last_;
};

}  // namespace sylvomex
