// SPDX-License-Identifier: MIT
#include "closedlib/long_tasks.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>
#include <tbb/task_arena.h>

#include <array>
#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "platform/work_meter.h"

namespace sylvomex {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kPatience{20};

/// Throws at a look once asked to.
struct Canceller : WorkWatcher {
  std::atomic<bool> is_asked = false;
  std::atomic<int> looks = 0;

  void Look(double) override {
    ++looks;
    if (is_asked) throw Cancelled{};
  }
};

/// A task without an end of its own. False when nobody ended it.
bool Work_Until_Cancelled() {
  const Clock::time_point begin = Clock::now();
  WorkMeter meter(0);
  while (Clock::now() - begin < kPatience) meter.Task();
  return false;
}

/// Two threads, also on a machine with one core.
template <class Act>
void On_Two_Threads(Act&& act) {
  const tbb::global_control control(tbb::global_control::max_allowed_parallelism, 2);
  tbb::task_arena(2).execute(act);
}

void Expect_Each_Once() {
  std::array<std::atomic<int>, 40> runs{};
  Run_Long_Tasks(40, [&](int k) { ++runs.at(static_cast<std::size_t>(k)); });
  for (const std::atomic<int>& count : runs) EXPECT_EQ(count, 1);
}

TEST(LongTasks, EachRunsOnce) {
  Expect_Each_Once();
  Canceller watcher;
  const WatchedWork watched(&watcher);
  Expect_Each_Once();
  EXPECT_GE(watcher.looks, 1);
}

TEST(LongTasks, NoneIsNothing) {
  Canceller watcher;
  const WatchedWork watched(&watcher);
  EXPECT_NO_THROW(Run_Long_Tasks(0, [](int) { throw std::runtime_error("a task of none"); }));
}

TEST(LongTasks, ACancelEndsThoseOfOtherThreadsAtTheirNextLook) {
  On_Two_Threads([] {
    Canceller watcher;
    const WatchedWork watched(&watcher);
    std::atomic<int> begun = 0, ended_by_none = 0;
    const auto task = [&](int) {
      if (++begun == 2) watcher.is_asked = true;
      if (!Work_Until_Cancelled()) ++ended_by_none;
    };
    EXPECT_THROW(Run_Long_Tasks(2, task), Cancelled);
    EXPECT_EQ(begun, 2);
    EXPECT_EQ(ended_by_none, 0);
  });
}

TEST(LongTasks, TheCallingThreadIsLookedAtWhileItWaitsForAnother) {
  On_Two_Threads([] {
    Canceller watcher;
    const WatchedWork watched(&watcher);
    const auto calling = std::this_thread::get_id();
    std::atomic<bool> other_works = false;
    const auto task = [&](int) {
      if (std::this_thread::get_id() != calling) {
        other_works = true;
        Work_Until_Cancelled();
        ADD_FAILURE() << "nobody ended the other thread";
      }
      while (!other_works) std::this_thread::yield();
    };
    std::thread asks([&] {
      // The first two looks are at what it did itself.
      const Clock::time_point begin = Clock::now();
      while (watcher.looks < 4 && Clock::now() - begin < kPatience) std::this_thread::yield();
      watcher.is_asked = true;
    });
    EXPECT_THROW(Run_Long_Tasks(2, task), Cancelled);
    asks.join();
    EXPECT_GE(watcher.looks, 4);
  });
}

TEST(LongTasks, AFailureOfATaskIsThrownAfterAllHaveEnded) {
  On_Two_Threads([] {
    Canceller watcher;
    const WatchedWork watched(&watcher);
    for (const int failing : {0, 1, 2}) {
      std::atomic<int> at_work = 0;
      const auto task = [&](int k) {
        ++at_work;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        --at_work;
        if (k == failing) throw std::runtime_error("the task");
      };
      EXPECT_THROW(Run_Long_Tasks(3, task), std::runtime_error) << failing;
      EXPECT_EQ(at_work, 0);
    }
  });
}

TEST(LongTasks, StepsOfTheWorkAreTheSameInEveryRun) {
  Canceller watcher;
  const WatchedWork watched(&watcher);
  const long before = Work_Steps();
  Run_Long_Tasks(3, [](int) {
    WorkMeter meter(10);
    for (int k = 0; k < 10; ++k) meter.Task();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
  });
  EXPECT_EQ(Work_Steps(), before);
}

}  // namespace
}  // namespace sylvomex
