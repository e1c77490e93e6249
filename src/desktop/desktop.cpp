// SPDX-License-Identifier: MIT
#include "desktop/desktop.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <cstdio>
#include <iostream>
#include <random>
#include <sstream>
#include <utility>

#include "session/session.h"
#include "workspace/start_up.h"

namespace sylvomex {
namespace {

constexpr int kMillisecondsBetweenResizes = 100;

/// What the aids put below the client area: two lines with their margins.
int Room_Below() { return 2 * (QFontMetrics(QApplication::font()).height() + 6); }

/// The screen's size less the menu, what stands below and a typical window frame.
QSize Largest_Client_Size(const FormWindow& window, int below) {
  constexpr int kFrame = 4;
  const QSize screen = window.screen()->availableGeometry().size();
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  return screen - QSize(2 * kFrame, title + window.Menu_Height() + below + 2 * kFrame);
}

std::string Handler_Name(const OperatorEvent& event) {
  return event.control.empty() ? event.form : event.control;
}

}  // namespace

Desktop::Desktop(DesktopOptions options)
    : options_(std::move(options)),
      screen_(options_.drives, {[this] { windows_.Mirror(); }, [this] { return Front_Window(); },
                                [this] { End(); }}),
      answering_(screen_),
      w_(std::make_unique<Workspace>(options_.drives, answering_)),
      windows_(*this, *w_) {
  move_timer_.setSingleShot(true);
  resize_timer_.setSingleShot(true);
  held_timer_.setSingleShot(true);
  QObject::connect(&move_timer_, &QTimer::timeout, [this] { Send_Waiting_Move(); });
  QObject::connect(&resize_timer_, &QTimer::timeout, [this] { Send_Waiting_Resize(); });
  QObject::connect(&held_timer_, &QTimer::timeout, [this] { Send_Held(); });
}

void Desktop::Start() {
  const QSize client = options_.client_size.value_or(
      Largest_Client_Size(windows_.Main(), options_.plain ? 0 : Room_Below()));
  w_->Form1.ClientWidth = client.width();
  w_->Form1.ClientHeight = client.height();
  Open_Journal();
  if (!options_.record.empty()) Start_Recording();
  Start_Workspace(*w_);
  if (!options_.client_size) windows_.Main().setWindowState(Qt::WindowMaximized);
  Resume();
  if (!options_.plain && history_.Get() == nullptr) Turn_History_On(Path(), true);
  windows_.Mirror();
}

/// The way of every event.
EventPath Desktop::Path() {
  return {recorder_ ? &*recorder_ : nullptr, journal_ ? &*journal_ : nullptr, &history_};
}

/// Goes on in the unfinished journal, at the size that the main window had, or begins a new one.
/// Without a place for it the desktop goes on without.
void Desktop::Open_Journal() {
  try {
    if (options_.unfinished) {
      w_->Form1.ClientWidth = options_.unfinished->facts.head->width;
      w_->Form1.ClientHeight = options_.unfinished->facts.head->height;
      options_.journal = options_.unfinished->file;
      journal_.emplace(std::move(*options_.unfinished), answering_);
    } else if (!options_.journal.native.empty()) {
      std::error_code failure;
      const auto whole = std::filesystem::absolute(options_.drives.Root(), failure);
      const std::string root = (failure ? options_.drives.Root() : whole).string();
      const JournalHead head{root, w_->Form1.ClientWidth, w_->Form1.ClientHeight,
                             std::random_device{}()};
      journal_.emplace(options_.journal, head, answering_);
    }
  } catch (const RunTimeError& failure) {
    std::cerr << "sylvomex: no journal is written: " << failure.what() << '\n';
  }
  if (journal_) w_->screen = &journal_->Front();
}

void Desktop::Resume() {
  if (!journal_ || !options_.unfinished) return;
  PlayerServices services;
  services.report = [](int line, const std::string& reason) {
    std::cerr << "line " << line << " of the journal: " << reason << '\n';
  };
  Serve_Events(services, Path());
  std::string told;
  for (const std::string& sentence : journal_->Repeat(*w_, std::move(services), [] {})) {
    told += sentence + "\n";
  }
  std::cerr << told;
  windows_.Mirror();
  told.pop_back();
  screen_.Message_Box(told);
}

/// Tells once when the journal cannot be written any more, or could not be begun.
void Desktop::Watch_Journal() {
  const bool is_missing = !journal_ && !options_.journal.native.empty();
  if (journal_failed_ || (journal_ ? journal_->Failure().empty() : !is_missing)) return;
  journal_failed_ = true;
  const std::string failure =
      journal_ ? journal_->Failure() : options_.journal.name + ", it cannot be written";
  screen_.Report_Error("Journal", "what is done from here cannot be recovered: " + failure, {});
}

void Desktop::Start_Recording() {
  record_.emplace(FilePath{options_.record.string(), options_.record});
  recorder_.emplace(record_->Script(), w_->Drives, w_->Form1.ClientWidth, w_->Form1.ClientHeight);
  recorder_screen_.emplace(*w_->screen, *recorder_);
  w_->screen = &*recorder_screen_;
}

void Desktop::Watch_Recording() {
  if (!record_ || record_lost_ || record_->Is_Whole()) return;
  record_lost_ = true;
  screen_.Report_Error("--record", kRecordLost, record_->File().native.string());
}

void Desktop::Begin_With(const std::filesystem::path& script) {
  std::ostringstream transcript;  // discarded: the windows show the same
  std::ostringstream reasons;
  const bool done = Play_Over_Block(*w_, script, transcript, reasons, Path());
  std::string told = reasons.str();
  std::cerr << told;
  windows_.Mirror();
  windows_.Main().Give_Keys_To_Panes();  // not to the box that the script has set last
  if (done) return;
  if (told.ends_with('\n')) told.pop_back();
  screen_.Report_Error("--begin", told, {});
}

void Desktop::Dispatch(const OperatorEvent& event) {
  if (holds_) return held_.push_back(event);
  Send_Waiting_Move();
  Run(event);
}

void Desktop::Dispatch_Answered(const OperatorEvent& event, std::vector<DialogAnswer> answers) {
  if (holds_) return;
  Send_Waiting_Move();
  known_answers_ = std::move(answers);
  Run(event);
}

void Desktop::Begin_Outer_Event(const OperatorEvent& event) {
  running_ = event;
  screen_.Begin_Outer_Event();
  answering_.Begin_Outer_Event();
  answering_.Answer_With(std::exchange(known_answers_, {}));
  for (EventWatcher* watcher : watchers_) watcher->Event_Begins(event);
}

void Desktop::Hold_Events(bool hold) {
  holds_ = hold;
  if (hold) return;
  if (waiting_move_ && !moving_) move_timer_.start(0);
  if (waiting_resize_ && !resizing_) resize_timer_.start(0);
  if (!held_.empty()) held_timer_.start(0);
}

void Desktop::Send_Held() {
  while (!holds_ && !held_.empty()) {
    const OperatorEvent event = std::move(held_.front());
    held_.pop_front();
    Dispatch(event);
  }
}

void Desktop::Run(const OperatorEvent& event) {
  if (ended_) return;
  if (depth_ == 0) Begin_Outer_Event(event);
  ++depth_;
  try {
    Handle_Event_On(Path(), *w_, event);
  } catch (const UnknownName& gone) {
    // The target of a queued event may have been hidden meanwhile.
    std::fprintf(stderr, "sylvomex: event passed over: %s\n", gone.what());
  } catch (const std::exception& failure) {
    screen_.Report_Error(Handler_Name(event), failure.what(), {});
  }
  if (depth_ == 1) Watch_Journal();
  if (--depth_ == 0) {
    screen_.End_Outer_Event();
    Watch_Recording();
    for (EventWatcher* watcher : watchers_) watcher->Event_Has_Ended(event);
  }
  windows_.Mirror();
}

void Desktop::Dispatch_Move(const OperatorEvent& event) {
  waiting_move_ = event;
  if (!moving_ && !move_timer_.isActive()) move_timer_.start(0);
}

void Desktop::Send_Waiting_Move() {
  if (moving_ || holds_ || !waiting_move_) return;
  const OperatorEvent event = *std::exchange(waiting_move_, std::nullopt);
  moving_ = true;
  Run(event);
  moving_ = false;
  if (waiting_move_) move_timer_.start(0);
}

bool Desktop::Dispatch_Resize(const OperatorEvent& event) {
  waiting_resize_ = event;
  if (!resizing_ && !resize_timer_.isActive()) resize_timer_.start(0);
  return true;
}

void Desktop::Send_Waiting_Resize() {
  if (resizing_ || holds_ || !waiting_resize_) return;
  const OperatorEvent event = *std::exchange(waiting_resize_, std::nullopt);
  resizing_ = true;
  Run(event);
  resizing_ = false;
  resize_timer_.start(kMillisecondsBetweenResizes);
}

const QCursor& Desktop::Custom_Cursor(const std::string& file) {
  return custom_cursors_.try_emplace(file, w_->Drives, file).first->second.Cursor();
}

QWidget* Desktop::Front_Window() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  return windows_.Main().isVisible() ? &windows_.Main() : nullptr;
}

void Desktop::End() {
  ended_ = true;
  Watch_Recording();
  if (options_.end) options_.end();
}

}  // namespace sylvomex
