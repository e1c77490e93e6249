// SPDX-License-Identifier: MIT
// How soon every command of a script could be cancelled: plays the script over a root, watching the
// work of each event, and prints those that lasted at least as long as asked for with the longest
// time in which they could not be cancelled.
//
//   cancel_reach ROOT SCRIPT [SECONDS]
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "history/event_words.h"
#include "platform/work_meter.h"
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

class LongestGap : public WorkWatcher {
 public:
  void Look(double) override {
    ++looks_;
    Close();
  }

  /// The end of the event is a look, too.
  void Close() {
    longest_ = std::max(longest_, Seconds_Since(last_));
    last_ = Clock::now();
  }

  [[nodiscard]] long Looks() const { return looks_; }
  [[nodiscard]] double Longest() const { return longest_; }

 private:
  Clock::time_point last_ = Clock::now();
  double longest_ = 0;
  long looks_ = 0;
};

EventOutcome Handle_Watched(Workspace& w, const OperatorEvent& event, double least) {
  LongestGap gap;
  const WatchedWork watched(&gap);
  const Clock::time_point begin = Clock::now();
  const EventOutcome outcome = Handle_Event(w, event);
  const double whole = Seconds_Since(begin);
  gap.Close();
  if (whole >= least) {
    std::printf("%8.3f s  %8.3f s  %9ld looks  %s\n", whole, gap.Longest(), gap.Looks(),
                Event_Words(event).c_str());
  }
  return outcome;
}

void Play(Workspace& w, ScriptScreen& screen, std::istream& script, double least) {
  PlayerServices services;
  services.handle_event = [least](Workspace& block, const OperatorEvent& event) {
    return Handle_Watched(block, event, least);
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
    std::cerr << "cancel_reach ROOT SCRIPT [SECONDS]\n";
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
  std::printf("   whole     longest gap\n");
  Play(*w, screen, script, argc > 3 ? std::atof(argv[3]) : 0.5);
  return 0;
}
