// SPDX-License-Identifier: MIT
// How soon every command of a script could be cancelled: plays the script over a root, watching the
// work of each event, and prints those that lasted at least as long as asked for with the longest
// time in which they could not be cancelled. With AFTER every event that lasts longer is cancelled
// then, and what is printed is how long it took to end, with the state of measuring restored. Steps
// that need what was cancelled fail; they are told and passed over.
//
//   cancel_reach ROOT SCRIPT [SECONDS [AFTER]]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <limits>
#include <memory>
#include <sstream>

#include "history/event_words.h"
#include "platform/work_meter.h"
#include "session/event_path.h"
#include "session/script_reader.h"
#include "session/step_player.h"
#include "state/workspace.h"
#include "workspace/start_up.h"

namespace {

using namespace sylvomex;
using Clock = std::chrono::steady_clock;

double Seconds_Since(Clock::time_point from) {
  return std::chrono::duration<double>(Clock::now() - from).count();
}

/// Throws Cancelled at the first look after so many seconds.
class Onlooker : public WorkWatcher {
 public:
  explicit Onlooker(double cancel_after) : cancel_after_(cancel_after) {}

  void Look(double) override {
    ++looks_;
    Close();
    if (Seconds_Since(begin_) < cancel_after_) return;
    asked_ = Clock::now();
    is_asked_ = true;
    throw Cancelled{};
  }

  /// The end of the event is a look, too.
  void Close() {
    longest_ = std::max(longest_, Seconds_Since(last_));
    last_ = Clock::now();
  }

  [[nodiscard]] bool Has_Cancelled() const { return is_asked_; }
  [[nodiscard]] double Since_Cancel() const { return Seconds_Since(asked_); }
  [[nodiscard]] long Looks() const { return looks_; }
  [[nodiscard]] double Longest() const { return longest_; }

 private:
  Clock::time_point begin_ = Clock::now(), last_ = begin_, asked_;
  double cancel_after_;
  double longest_ = 0;
  long looks_ = 0;
  bool is_asked_ = false;
};

struct Wishes {
  double least = 0.5;  // seconds of an event that is printed
  double cancel_after = std::numeric_limits<double>::infinity();
};

EventOutcome Handle_Watched(const EventPath& path, Workspace& w, const OperatorEvent& event,
                            const Wishes& wishes) {
  Onlooker onlooker(wishes.cancel_after);
  const WatchedWork watched(&onlooker);
  const Clock::time_point begin = Clock::now();
  const EventOutcome outcome = Handle_Event_On(path, w, event);
  const double whole = Seconds_Since(begin);
  const std::string words = Event_Words(event);
  if (onlooker.Has_Cancelled()) {
    std::printf("%8.3f s  ended in %5.3f s  %s\n", whole, onlooker.Since_Cancel(), words.c_str());
  } else if (onlooker.Close(); whole >= wishes.least) {
    std::printf("%8.3f s  %8.3f s  %9ld looks  %s\n", whole, onlooker.Longest(), onlooker.Looks(),
                words.c_str());
  }
  return outcome;
}

void Play(Workspace& w, ScriptScreen& screen, std::istream& script, const Wishes& wishes) {
  HistorySwitch history;
  history.Turn(true);  // as in the desktop
  const EventPath path{nullptr, nullptr, &history};
  PlayerServices services;
  services.handle_event = [&](Workspace& block, const OperatorEvent& event) {
    return Handle_Watched(path, block, event, wishes);
  };
  services.report = [](int line, const std::string& reason) {
    std::cerr << line << ": " << reason << '\n';
  };
  StepPlayer player(w, screen, services);
  ScriptReader reader(script);
  while (const auto step = reader.Next()) {
    try {
      player.Play(*step);
    } catch (const StepEnd& failure) {
      services.report(reader.Line(), failure.reason);
      screen.Drop_Failure();
    } catch (const SessionEnd&) {
      return;
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "cancel_reach ROOT SCRIPT [SECONDS [AFTER]]\n";
    return 1;
  }
  std::ifstream script(argv[2]);
  if (!script) {
    std::cerr << "cannot read " << argv[2] << '\n';
    return 1;
  }
  std::ostringstream transcript, log;
  ScriptScreen screen(transcript, log);
  const auto w = std::make_unique<Workspace>(DriveMap(argv[1]), screen);
  w->Form1.ClientWidth = 1280;
  w->Form1.ClientHeight = 1024;
  Start_Workspace(*w);
  Wishes wishes;
  if (argc > 3) wishes.least = std::atof(argv[3]);
  if (argc > 4) wishes.cancel_after = std::atof(argv[4]);
  std::printf("   whole     longest gap\n");
  Play(*w, screen, script, wishes);
  return 0;
}
