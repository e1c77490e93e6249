// SPDX-License-Identifier: MIT
#include "faults/random_events.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>

#include "faults/random_screen.h"
#include "faults/slow_event_watch.h"
#include "session/event_path.h"
#include "session/event_steps.h"
#include "workspace/control_lookup.h"
#include "workspace/start_up.h"

namespace sylvomex {
namespace {

using Kind = OperatorEvent::Kind;

constexpr int kDeepest = 3;      // events inside events
constexpr int kMostInside = 20;  // inside one: some commands service events 15,000 times
constexpr long kEventsASession = 400;
constexpr std::array kPrologue{"menu Add_images_to_set",  "menu Add_images_to_set",
                               "menu Add_images_to_set",  "menu Add_height_Model",
                               "menu Set_3D_solution",    "menu Center_to_xyz_click",
                               "menu Open_Stereo_window", "menu Form5.Open_Pair",
                               "menu Open_Map_Window",    "menu Form8.Open_a_Map"};

std::size_t Open_Files() {
  const std::filesystem::directory_iterator open("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(open), end(open)));
}

/// Of a window. A zoom by the pointer leaves one over its pane.
bool Has_Hourglass(Workspace& w) {
  return std::ranges::any_of(All_Windows(), [&](const WindowRow& window) {
    return window.record(w).MousePointer == PointerShape::Hourglass;
  });
}

/// One session over a new block, some with history, some with a journal.
class RandomPlay {
 public:
  RandomPlay(const RandomSite& site, std::mt19937& random, EventCounts& counts)
      : screen_(site, random),
        events_(random, screen_),
        counts_(counts),
        w_(std::make_unique<Workspace>(site.Drives(), screen_)) {
    const JournalHead head{site.Folder().Path().string(), 200, 170, 1};
    if (random() % 4 == 0) {
      journal_.emplace(folder_.File("journal"), head, screen_);
      w_->screen = &journal_->Front();
    }
    w_->Form1.ClientWidth = head.width;
    w_->Form1.ClientHeight = head.height;
    Start_Workspace(*w_);
    path_ = {nullptr, journal_ ? &*journal_ : nullptr, &history_};
    history_.Turn(random() % 3 != 0);
    screen_.on_service = [this] { Play_Inside(); };
  }

  void Play_Prologue() {
    screen_.planned = {"c:\\data\\im0.hdr",
                       "c:\\data\\im1.hdr",
                       "c:\\data\\im2.hdr",
                       "c:\\data\\dem.hdr",
                       "0",
                       "3",
                       "2",
                       "10",
                       "c:\\data\\pair.txt",
                       "c:\\data\\map.hdr"};
    for (const char* step : kPrologue) Handle(Event_Of_Step(Split_Line(step)));
    screen_.planned.clear();
  }

  void Play(long count) {
    for (const long end = counts_.events + count; counts_.events < end && !screen_.ended;) {
      inside_ = 0;
      Handle(events_.Next(*w_));
      ASSERT_FALSE(Has_Hourglass(*w_)) << last_;
      ASSERT_TRUE(w_->ImageCount >= 0 && w_->ImageCount <= 9) << last_;
    }
  }

  ~RandomPlay() {
    counts_.dialogs += screen_.dialogs;
    counts_.errors += screen_.errors;
    ++counts_.sessions;
  }

 private:
  void Play_Inside() {
    if (depth_ >= kDeepest || inside_ >= kMostInside || screen_.ended) return;
    ++inside_;
    ++counts_.inside;
    Handle(events_.Next(*w_));
  }

  void Handle(const OperatorEvent& event) {
    ++counts_.events;
    last_ = Step_Text(event);
    const std::string step = last_;
    const SlowEventWatch watch(step);
    ++depth_;
    try {
      static_cast<void>(Handle_Event_On(path_, *w_, event));
    } catch (const UnknownName&) {
      ++counts_.refused;
    }
    --depth_;
    if (watch.Seconds() <= counts_.slowest) return;
    counts_.slowest = watch.Seconds();
    counts_.slowest_event = step;
  }

  TemporaryFolder folder_;
  RandomScreen screen_;
  RandomEvents events_;
  EventCounts& counts_;
  std::unique_ptr<Workspace> w_;
  std::optional<KeptJournal> journal_;
  HistorySwitch history_;
  EventPath path_;
  std::string last_;
  int depth_ = 0;
  int inside_ = 0;  // events inside the outer one
};

}  // namespace

const WindowRow& RandomEvents::Some_Window(Workspace& w) {
  const auto windows = All_Windows();
  if (Below(2) == 0) return windows.front();
  const WindowRow& window = windows[static_cast<std::size_t>(Below(std::ssize(windows)))];
  // Scripts also reach windows that are not shown.
  return window.record(w).Visible || Below(5) == 0 ? window : windows.front();
}

const ControlRow* RandomEvents::Some_Control(const WindowRow& window, bool is_picture,
                                             Workspace& w) {
  std::vector<const ControlRow*> fitting;
  for (const ControlRow& row : window.design->controls) {
    const AnyControl control = row.control(window.record(w), row.first);
    const bool takes_nothing =
        std::holds_alternative<Label*>(control) || std::holds_alternative<Divider*>(control);
    if (takes_nothing && Below(10) != 0) continue;
    if (std::holds_alternative<Picture*>(control) == is_picture) fitting.push_back(&row);
  }
  if (fitting.empty()) return nullptr;
  return fitting[static_cast<std::size_t>(Below(static_cast<int>(fitting.size())))];
}

std::string RandomEvents::Name_Of(const ControlRow& row) {
  if (row.first == kNoIndex) return row.name;
  const int most = std::min(row.last - row.first + 1, Below(8) == 0 ? 99 : 3);
  return Control_Name_Text(row.name, row.first + Below(most));
}

OperatorEvent RandomEvents::On_Picture(Workspace& w, const WindowRow& window, OperatorEvent event) {
  constexpr std::array kKinds{Kind::Click, Kind::Click, Kind::Click, Kind::DoubleClick,
                              Kind::Move,  Kind::Wheel, Kind::Pan};
  constexpr std::array kButtons{kLeftButton, kLeftButton, kRightButton, kMiddleButton};
  const ControlRow* const row = Some_Control(window, true, w);
  event.kind = kKinds[static_cast<std::size_t>(Below(kKinds.size()))];
  if (row != nullptr) event.control = Name_Of(*row);
  event.button = kButtons[static_cast<std::size_t>(Below(kButtons.size()))];
  if (Below(3) == 0) event.shift = Below(8);
  event.notches = Below(7) - 3;
  event.x = Below(20) == 0 ? Below(70000) - 35000 : Below(90) - 10 + 0.25 * Below(4);
  event.y = Below(20) == 0 ? Below(70000) - 35000 : Below(90) - 10;
  return event;
}

OperatorEvent RandomEvents::On_Control(Workspace& w, const WindowRow& window, OperatorEvent event) {
  const ControlRow* const row = Some_Control(window, false, w);
  if (row == nullptr) return event;
  event.control = Name_Of(*row);
  event.kind = Below(3) == 0 ? Kind::Press : Kind::Set;
  const bool is_text = std::holds_alternative<TextBox*>(row->control(window.record(w), row->first));
  event.text = is_text ? screen_.Some_Text("X", "12") : std::to_string(Below(2));
  return event;
}

OperatorEvent RandomEvents::Key(OperatorEvent event) {
  event.kind = Kind::Key;
  event.key_code = Below(5) == 0 ? Below(300) : 48 + Below(76);
  if (Below(3) == 0) event.shift = Below(8);
  return event;
}

OperatorEvent RandomEvents::Size(OperatorEvent event) {
  event.kind = Below(3) == 0 ? Kind::Close : Kind::Resize;
  event.x = Below(10) == 0 ? Below(40000) - 2000 : 100 + Below(200);
  event.y = event.x > 1000 ? 60 : 100 + Below(150);
  return event;
}

OperatorEvent RandomEvents::Next(Workspace& w) {
  const WindowRow& window = Some_Window(w);
  OperatorEvent event;
  event.form = window.name;
  const int choice = Below(100);
  if (choice < 40) return On_Picture(w, window, event);
  if (choice < 58) return On_Control(w, window, event);
  if (choice < 70) return Key(event);
  if (choice < 73) return Size(event);
  if (choice < 80) {
    constexpr std::array kKinds{Kind::Undo, Kind::Undo, Kind::Redo, Kind::TakeBackLine};
    event.kind = kKinds[static_cast<std::size_t>(Below(kKinds.size()))];
    return event;
  }
  if (window.menu.empty()) return Key(event);
  event.kind = Below(6) == 0 ? Kind::Command : Kind::Menu;
  event.control = window.menu[static_cast<std::size_t>(Below(std::ssize(window.menu)))].name;
  return event;
}

EventCounts Play_Random_Events(std::uint32_t seed, long count) {
  std::mt19937 random(seed);
  EventCounts counts;
  std::optional<RandomSite> site;
  while (counts.events < count && !testing::Test::HasFatalFailure()) {
    // What commands leave on the drives is input for later sessions, for a while.
    if (counts.sessions % 20 == 0) site.emplace(random());
    const std::size_t open_before = Open_Files();
    {
      RandomPlay play(*site, random, counts);
      if (random() % 8 != 0) play.Play_Prologue();
      play.Play(std::min(kEventsASession, count - counts.events));
    }
    EXPECT_EQ(Open_Files(), open_before);
  }
  return counts;
}

}  // namespace sylvomex
