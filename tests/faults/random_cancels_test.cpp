// SPDX-License-Identifier: MIT
// Commands that last, cancelled at random looks: afterwards the block and the files are in order,
// the program goes on working, and the recording of it all plays back to the same block and files.
// $SYLVOMEX_CANCELS: how many sessions of each kind, 3 unless set; $SYLVOMEX_SEED: other ones.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <random>

#include "faults/cancel_site.h"
#include "history/measuring_dump.h"
#include "platform/work_meter.h"
#include "session/cancelling.h"
#include "session/event_path.h"
#include "session/event_steps.h"
#include "session/recorder_screen.h"
#include "workspace/start_up.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr double kWidth = 800, kHeight = 500;
constexpr int kEventsOfASession = 25;

long Number_In(const char* variable, long otherwise) {
  const char* const text = std::getenv(variable);
  return text != nullptr ? std::atol(text) : otherwise;
}

/// Answers as planned; what is not planned is dismissed, and yes to all questions.
class PlannedScreen : public RecordingScreen {
 public:
  std::deque<std::string> planned_files, planned_inputs;

  Answer Message_Box(std::string_view, Buttons buttons, std::string_view) override {
    return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
  }
  std::optional<std::string> Input_Box(std::string_view, std::string_view,
                                       std::string_view) override {
    return Take(planned_inputs);
  }
  std::optional<std::string> File_Dialog(const FileQuestion&) override {
    return Take(planned_files);
  }

  double Random() override { return Uniform_Of(generator_); }  // as a script has them

 private:
  std::mt19937 generator_{kRandomSeed};

  static std::optional<std::string> Take(std::deque<std::string>& planned) {
    if (planned.empty()) return std::nullopt;
    std::string answer = std::move(planned.front());
    planned.pop_front();
    return answer;
  }
};

/// Whose commands take no time, as those of the other screen: some write it into a label.
class TimelessScreen : public ScriptScreen {
 public:
  using ScriptScreen::ScriptScreen;
  double Clock() override { return 0; }
};

/// Cancels at the look of a number, counted from 1; 0 never.
struct CancelAtLook : WorkWatcher {
  long left;
  explicit CancelAtLook(long look) : left(look) {}
  void Look(double) override {
    if (left > 0 && --left == 0) throw Cancelled{};
  }
};

struct Session {
  const TemporaryFolder& folder;
  Screen& screen;
  std::unique_ptr<Workspace> w;
  HistorySwitch history;
  std::vector<std::string> states;  // of the block after each event

  Session(const TemporaryFolder& site, Screen& seen)
      : folder(site), screen(seen), w(std::make_unique<Workspace>(site.Drives(), seen)) {
    w->Form1.ClientWidth = kWidth;
    w->Form1.ClientHeight = kHeight;
    Start_Workspace(*w);
  }
};

class RandomCancels {
 public:
  RandomCancels(const TemporaryFolder& folder, CancelPlan plan, std::uint32_t seed)
      : random_(seed),
        plan_(std::move(plan)),
        session_(folder, screen_),
        recorder_(script_, folder.Drives(), kWidth, kHeight),
        recorder_screen_(screen_, recorder_) {
    session_.w->screen = &recorder_screen_;
    Turn_History_On(Path(), true);
  }

  void Play() {
    for (const PlannedEvent& event : plan_.prologue) {
      Handle(event, 0);
      ASSERT_TRUE(screen_.errors.empty()) << event.step << ": " << screen_.errors.front();
    }
    for (int n = 0; n < kEventsOfASession && !testing::Test::HasFailure(); ++n) {
      const PlannedEvent& event = plan_.events[random_() % plan_.events.size()];
      Check(event,
            random_() % 3 == 0 ? 0 : 1 + static_cast<long>(random_() % (1U << random_() % 10)));
    }
    recorder_.Finish();
  }

  [[nodiscard]] std::string Script() const { return script_.str(); }
  [[nodiscard]] const std::vector<std::string>& States() const { return session_.states; }
  [[nodiscard]] int Cancels() const { return cancels_; }

 private:
  std::string Dump() { return Block_Dump(*session_.w); }
  EventPath Path() { return {&recorder_, nullptr, &session_.history}; }

  EventOutcome Handle(const PlannedEvent& event, long look) {
    screen_.planned_files = event.files;
    screen_.planned_inputs = event.inputs;
    CancelAtLook watcher(look);
    const WatchedWork watched(&watcher);
    const EventOutcome outcome =
        Handle_Event_On(Path(), *session_.w, Event_Of_Step(Split_Line(event.step)));
    session_.states.push_back(Dump());
    return outcome;
  }

  void Check(const PlannedEvent& event, long look) {
    const CancelledCommand changes{"", "", event.step, event.may_change, ""};
    const std::string block = Dump();
    const Files files = Files_In(session_.folder.Path(), changes);
    const EventOutcome outcome = Handle(event, look);
    const std::string name = event.step + ", look " + std::to_string(look);
    Expect_Order(name);
    if (outcome != EventOutcome::Cancelled) return;
    ++cancels_;
    if (event.keeps_parts) return;
    EXPECT_EQ(Dump(), block) << name;
    EXPECT_TRUE(Files_In(session_.folder.Path(), changes) == files) << name;
  }

  void Expect_Order(const std::string& name) {
    EXPECT_NE(session_.w->Form1.MousePointer, PointerShape::Hourglass) << name;
    EXPECT_TRUE(session_.w->ImageCount >= 0 && session_.w->ImageCount <= 9) << name;
    for (const auto& entry : fs::recursive_directory_iterator(session_.folder.Path())) {
      EXPECT_EQ(entry.path().filename().string().find(".part"), std::string::npos)
          << entry.path() << " is left over by " << name;
    }
  }

  std::mt19937 random_;
  CancelPlan plan_;
  PlannedScreen screen_;
  Session session_;
  std::ostringstream script_;
  Recorder recorder_;
  RecorderScreen recorder_screen_;
  int cancels_ = 0;
};

/// Plays a recording, and returns the states of the block after its events.
std::vector<std::string> Played_Again(const TemporaryFolder& folder, const std::string& script) {
  std::ostringstream transcript, log;
  TimelessScreen screen(transcript, log);
  Session session(folder, screen);
  PlayerServices services;
  const EventPath path{nullptr, nullptr, &session.history};
  Serve_Events(services, path);
  services.handle_event = [&](Workspace& w, const OperatorEvent& event) {
    const EventOutcome outcome = Handle_Event_On(path, w, event);
    if (event.kind != OperatorEvent::Kind::Resize) session.states.push_back(Block_Dump(w));
    return outcome;
  };
  services.report = [](int line, const std::string& reason) {
    ADD_FAILURE() << "line " << line << ": " << reason;
  };
  StepPlayer player(*session.w, screen, services);
  std::istringstream steps(script);
  ScriptReader reader(steps);
  while (const auto step = reader.Next()) {
    try {
      player.Play(*step);
    } catch (const StepEnd& failure) {
      ADD_FAILURE() << "line " << reader.Line() << ": " << failure.reason << '\n' << script;
      break;
    }
  }
  return session.states;
}

/// But the patches of an image whose correlation was cancelled: they are scratch files.
Files All_Files(const TemporaryFolder& folder) {
  return Files_In(folder.Path(), {"", "", "", {"ccor_ima*", "corimage*", "rkuva*"}, ""});
}

void Copy_Site(const fs::path& from, const TemporaryFolder& to) {
  fs::copy(from, to.Path(), fs::copy_options::recursive);
}

/// Counts the commands that were cancelled.
void Play_Session(const fs::path& made, const CancelPlan& plan, std::uint32_t seed, int& cancels) {
  const TemporaryFolder first, second;
  Copy_Site(made, first);
  Copy_Site(made, second);
  RandomCancels session(first, plan, seed);
  session.Play();
  if (testing::Test::HasFailure()) return;
  const std::vector<std::string> states = Played_Again(second, session.Script());
  EXPECT_EQ(states.size(), session.States().size());
  for (std::size_t k = 0; k < std::min(states.size(), session.States().size()); ++k) {
    ASSERT_EQ(states[k], session.States()[k]) << "event " << k + 1 << ", seed " << seed << '\n'
                                              << session.Script();
  }
  const Files here = All_Files(first), there = All_Files(second);
  for (const auto& [name, content] : here) {
    EXPECT_TRUE(there.contains(name) && there.at(name) == content)
        << name << " differs, seed " << seed << '\n'
        << session.Script();
  }
  EXPECT_EQ(here.size(), there.size()) << "seed " << seed;
  cancels += session.Cancels();
}

void Play_Sessions(const fs::path& made, const CancelPlan& plan) {
  const auto first = static_cast<std::uint32_t>(Number_In("SYLVOMEX_SEED", 1));
  const auto count = static_cast<std::uint32_t>(Number_In("SYLVOMEX_CANCELS", 3));
  int cancels = 0;
  for (std::uint32_t n = 0; n < count && !testing::Test::HasFailure(); ++n) {
    Play_Session(made, plan, first + n, cancels);
  }
  EXPECT_GT(cancels, 0);
  std::cout << cancels << " of " << count * kEventsOfASession << " events cancelled\n";
}

TEST(RandomCancels, LeaveOrderAndPlayBackOverAWideSite) {
  const TemporaryFolder folder;
  const WideCancelSite site(folder);
  Play_Sessions(folder.Path(), WideCancelSite::Plan());
}

TEST(RandomCancels, LeaveOrderAndPlayBackInTheSearchForTreeTops) {
  const MatchingFiles files;
  Play_Sessions(files.site.Folder().Path(), Matching_Cancel_Plan());
}

TEST(RandomCancels, LeaveOrderAndPlayBackInSurfaces) {
  const SurfaceSite site;
  site.Write("c/data/IMA_polyline.txt",
             "-0.0025,-0.0012\n0.0045,-0.0012\n0.0045,0.0013\n-0.0025,0.0013\n");
  Play_Sessions(site.Path(), Surface_Cancel_Plan());
}

}  // namespace
}  // namespace sylvomex
