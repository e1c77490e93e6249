// SPDX-License-Identifier: MIT
// Records the operator's input as a script that plays back to the same result.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drive_map.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {

enum class DialogKind { Input, File, Message };

/// The script step that gives a dialog this answer.
std::string Answer_Step(DialogKind kind, const std::string& answer);

class Recorder {
 public:
  /// script receives whole lines, flushed after every event, and must outlive the recorder. The
  /// first line sets the main window's client size, width by height pixels. Files that lie on the
  /// drives are written under their drive names, so that the script plays over other drives as
  /// well.
  Recorder(std::ostream& script, DriveMap drives, double width, double height);
  ~Recorder() { Finish(); }
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  /// The handler of an event begins, possibly inside the handler of another event.
  void Begin_Event(const OperatorEvent& event);

  /// The handler that began last has ended. One that failed is recorded as a step that may fail,
  /// one that was cancelled with the number of steps of its work until then.
  void End_Event(EventOutcome outcome, long work_steps = 0);

  /// A dialog was answered: the text entered, the file chosen or the name of the button ("ok",
  /// "cancel", "yes", "no"); std::nullopt when the dialog was dismissed.
  void Dialog_Answered(DialogKind kind, const std::optional<std::string>& answer);

  /// The running command is about to run waiting events.
  void Events_Serviced();

  /// A history is kept from here on, or no longer.
  void Turn_History(bool on);

  /// Writes everything still buffered. Running handlers are treated as ended.
  void Finish();

 private:
  struct RecordedEvent {
    OperatorEvent event;
    long servicing = 0;  // servicing of the outer event in which this one began; 0 before the first
    bool may_fail = false;
    std::optional<long> cancelled_after = {};  // steps of its work
  };

  [[nodiscard]] std::string Playable_Text(std::string text) const;
  [[nodiscard]] static std::string Playable_Step(const RecordedEvent& recorded);
  [[nodiscard]] bool Is_Plain_Move() const;
  void Hold_Move(const OperatorEvent& move);
  void Write_Held_Move();
  void Write_Events();

  std::ostream& script_;
  DriveMap drives_;
  std::vector<RecordedEvent> events_;  // the outer event and those nested in it
  std::vector<std::size_t> running_;   // indices into events_ of those that have not ended
  std::vector<std::string> answers_;   // answer steps, in the order of the dialogs
  std::optional<OperatorEvent> held_move_;
  long servicings_ = 0;  // number since the outer event began
};

}  // namespace sylvomex
