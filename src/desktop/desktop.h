// SPDX-License-Identifier: MIT
// The desktop program: the block, its windows, and the single path from a widget event to its
// handler.
#pragma once

#include <QTimer>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/answering_screen.h"
#include "desktop/cursor_file.h"
#include "desktop/desktop_screen.h"
#include "desktop/event_watcher.h"
#include "desktop/windows.h"
#include "session/event_path.h"
#include "session/record_file.h"
#include "session/recorder_screen.h"

namespace sylvomex {

struct DesktopOptions {
  DriveMap drives;
  std::optional<QSize> client_size;  // of the main window; if empty, as large as the screen allows
  std::filesystem::path record;      // script file that records the session; empty for none
  std::function<void()> end;         // ends the program after the operator's confirmation
  bool plain = true;                 // without undo and the other aids
  FilePath journal = {};             // of the session; empty for none
  std::optional<UnfinishedJournal> unfinished =
      std::nullopt;  // done again at the start; the journal goes on
};

class Desktop : public OperatorEvents {
 public:
  explicit Desktop(DesktopOptions options);

  /// Runs the start routine and shows the main window. RunTimeError when the start fails or the
  /// script file cannot be written.
  void Start();

  /// Plays a script before the operator takes over; failures are reported in a message box and on
  /// standard error.
  void Begin_With(const std::filesystem::path& script);

  void Dispatch(const OperatorEvent& event) override;

  /// Dispatch, with answers for the dialogs of the event. Not while another event is being handled.
  void Dispatch_Answered(const OperatorEvent& event, std::vector<DialogAnswer> answers);
  void Dispatch_Move(const OperatorEvent& event) override;
  bool Dispatch_Resize(const OperatorEvent& event) override;
  const QCursor& Custom_Cursor(const std::string& file) override;

  [[nodiscard]] Workspace& Block() { return *w_; }
  /// An event is being handled.
  [[nodiscard]] bool Is_Busy() const { return depth_ > 0; }
  /// The outermost of the events that are being handled; valid while Is_Busy.
  [[nodiscard]] const OperatorEvent& Running() const { return running_; }

  /// While events are held none begins: they wait, in their order, for the event loop after it.
  void Hold_Events(bool hold);

  /// nullptr for a plain desktop.
  [[nodiscard]] History* Kept() { return history_.Get(); }
  [[nodiscard]] Windows& Shown() { return windows_; }
  [[nodiscard]] DesktopScreen& Dialogs() { return screen_; }

  /// What was asked and answered in the dialogs of the present outer event.
  [[nodiscard]] const std::vector<DialogAnswer>& Answers() const { return answering_.Given(); }

  /// From now on, until it is sent away; it must not go before.
  void Bring_In(EventWatcher& watcher) { watchers_.push_back(&watcher); }
  void Send_Away(EventWatcher& watcher) { std::erase(watchers_, &watcher); }

 private:
  void Start_Recording();
  void Watch_Recording();
  void Open_Journal();
  void Resume();
  void Watch_Journal();
  EventPath Path();
  void Begin_Outer_Event(const OperatorEvent& event);
  void Run(const OperatorEvent& event);
  void Send_Waiting_Move();
  void Send_Waiting_Resize();
  void Send_Held();
  QWidget* Front_Window();
  void End();

  DesktopOptions options_;
  DesktopScreen screen_;
  AnsweringScreen answering_;  // before the screen
  std::vector<DialogAnswer> known_answers_;
  std::vector<EventWatcher*> watchers_;
  std::unique_ptr<Workspace> w_;
  std::optional<RecordFile> record_;
  bool record_lost_ = false;  // and told
  std::optional<Recorder> recorder_;
  std::optional<RecorderScreen> recorder_screen_;
  std::optional<KeptJournal> journal_;
  bool journal_failed_ = false;  // and the operator knows
  HistorySwitch history_;
  std::map<std::string, CursorFile> custom_cursors_;  // by file name
  Windows windows_;
  QTimer move_timer_;
  QTimer resize_timer_;
  QTimer held_timer_;
  std::optional<OperatorEvent> waiting_move_;
  std::optional<OperatorEvent> waiting_resize_;
  std::deque<OperatorEvent> held_;
  OperatorEvent running_;
  bool holds_ = false;
  bool moving_ = false;
  bool resizing_ = false;
  int depth_ = 0;  // nesting depth of the events being handled
  bool ended_ = false;
};

}  // namespace sylvomex
