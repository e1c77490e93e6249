// SPDX-License-Identifier: MIT
#include "workspace/event_dispatch.h"

#include <filesystem>
#include <new>
#include <optional>
#include <stdexcept>

#include "panes/pane_layout.h"
#include "platform/operator_notices.h"
#include "platform/sound_reads.h"
#include "platform/work_meter.h"
#include "state/window_limits.h"
#include "workspace/control_events.h"
#include "workspace/control_lookup.h"

namespace sylvomex {
namespace {

void Drop_Hourglass(PointerShape& shape) {
  if (shape == PointerShape::Hourglass) shape = PointerShape::Normal;
}

void Drop_Hourglasses(Workspace& w) {
  for (const WindowRow& window : All_Windows()) {
    Form& form = window.record(w);
    Drop_Hourglass(form.MousePointer);
    Visit_Controls(form, window.design->controls, [](const ControlRow&, int, AnyControl control) {
      if (Picture** picture = std::get_if<Picture*>(&control)) {
        Drop_Hourglass((*picture)->MousePointer);
      }
    });
  }
}

// Removes the hourglass however a handler ends.
class PointerGuard {
 public:
  explicit PointerGuard(Workspace& w) : w_(w) {}
  ~PointerGuard() {
    if (!done_) Drop_Hourglasses(w_);
  }
  PointerGuard(const PointerGuard&) = delete;
  PointerGuard& operator=(const PointerGuard&) = delete;
  void Done() { done_ = true; }

 private:
  Workspace& w_;
  bool done_ = false;
};

void Run_Guarded(Workspace& w, const std::function<void()>& handler) {
  PointerGuard guard(w);
  handler();
  guard.Done();
}

// Events serviced inside a command can begin another one, and so on: each takes its share of the
// thread's stack.
class Nesting {
 public:
  Nesting() { ++depth_; }
  ~Nesting() { --depth_; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

  static void Require_Room() {
    if (depth_ <= kMostNestedHandlers) return;
    throw RunTimeError(Failure::OutOfMemory, std::to_string(kMostNestedHandlers) +
                                                 " commands run inside one another already");
  }

 private:
  static thread_local int depth_;
};

thread_local int Nesting::depth_ = 0;

/// A mapped file that failed explains whatever came of it.
void Report(Workspace& w, const std::string& name, const ReadScope& reads,
            const RunTimeError& error) {
  const std::optional<RunTimeError> lost = reads.Failed();
  const bool is_other = lost && lost->Native_Path() != error.Native_Path();
  const RunTimeError& shown = is_other ? *lost : error;
  w.screen->Report_Error(name, shown.what(), shown.Native_Path().string());
}

EventOutcome Run_To_Its_End(Workspace& w, const std::string& name,
                            const std::function<void()>& handler) {
  const Nesting nesting;
  const ReadScope reads;
  try {
    Nesting::Require_Room();
    Run_Guarded(w, handler);
    Require_Sound_Reads();
    return EventOutcome::Done;
  } catch (const RunTimeError& error) {
    Report(w, name, reads, error);
  } catch (const std::bad_alloc&) {
    w.screen->Report_Error(name, Failure_Text(Failure::OutOfMemory), "");
  } catch (const std::length_error&) {
    w.screen->Report_Error(name, Failure_Text(Failure::OutOfMemory), "");
  } catch (const std::filesystem::filesystem_error& error) {
    const RunTimeError failure(Failure::FileFailure, error.what(), error.path1());
    Report(w, name, reads, failure);
  } catch (const Cancelled&) {
    return EventOutcome::Cancelled;
  }
  return EventOutcome::Error;
}

const WindowRow& Require_Window(const std::string& form) {
  const WindowRow* window = Find_Window(form);
  if (window == nullptr) throw UnknownName("there is no window " + form);
  return *window;
}

const MenuRow& Require_Row(const WindowRow& window, const OperatorEvent& event) {
  const MenuRow* row = Find_Menu_Row(window.menu, event.control);
  if (row == nullptr) {
    throw UnknownName("there is no menu item " + event.form + "." + event.control);
  }
  return *row;
}

EventOutcome Run_Row(Workspace& w, const MenuRow& row) {
  return Run_Handler(w, row.name, [&] { Run_Menu_Row(w, row); });
}

EventOutcome Choose_Row(Workspace& w, const MenuRow& row) {
  return row.greyed ? EventOutcome::Greyed : Run_Row(w, row);
}

ControlName Require_Name(const OperatorEvent& event) {
  const auto name = Parse_Control_Name(event.control);
  if (!name) throw UnknownName("there is no control " + event.control);
  return *name;
}

void Require_Shown_Picture(Workspace& w, const WindowRow& window, const OperatorEvent& event,
                           const ControlName& name) {
  const AnyControl control = Control_Of(w, window, name);
  Picture* const* picture = std::get_if<Picture*>(&control);
  if (picture == nullptr) {
    throw UnknownName("there is no picture " + event.form + "." + event.control);
  }
  if (!(*picture)->Visible) throw UnknownName(event.control + " is not shown");
}

ControlEvent Pointer_At(const OperatorEvent& event, int index) {
  return {index, event.button, event.shift, 0, event.x, event.y, event.notches};
}

/// The target of a pointer event: a visible picture, or the window itself.
ControlName Pointer_Target(Workspace& w, const WindowRow& window, const OperatorEvent& event) {
  if (event.control.empty()) return {kWindowItself, kNoIndex};
  ControlName name = Require_Name(event);
  Require_Shown_Picture(w, window, event, name);
  return name;
}

EventOutcome Worse(EventOutcome a, EventOutcome b) { return a == EventOutcome::Done ? b : a; }

EventOutcome Click(Workspace& w, const WindowRow& window, const OperatorEvent& event) {
  const ControlName name = Pointer_Target(w, window, event);
  if (!Takes_Button(window, name.name, event.button)) return EventOutcome::Done;
  return Tell_Control(w, window, name.name, Happening::MouseDown, Pointer_At(event, name.index));
}

EventOutcome Double_Click(Workspace& w, const WindowRow& window, const OperatorEvent& event) {
  const ControlName name = Pointer_Target(w, window, event);
  if (Find_Handler(window, name.name, Happening::DblClick) != nullptr) {
    return Tell_Control(w, window, name.name, Happening::DblClick, Pointer_At(event, name.index));
  }
  const EventOutcome first = Click(w, window, event);
  return Worse(first, Click(w, window, event));
}

ControlName Move_Target(Workspace& w, const WindowRow& window, const OperatorEvent& event) {
  if (event.control.empty()) return {kWindowItself, kNoIndex};
  ControlName name = Require_Name(event);
  const AnyControl control = Control_Of(w, window, name);
  if (std::holds_alternative<std::monostate>(control)) {
    throw UnknownName("there is no control " + event.form + "." + event.control);
  }
  if (std::holds_alternative<Picture*>(control)) Require_Shown_Picture(w, window, event, name);
  return name;
}

EventOutcome Move(Workspace& w, const WindowRow& window, const OperatorEvent& event) {
  const ControlName name = Move_Target(w, window, event);
  return Tell_Control(w, window, name.name, Happening::MouseMove, Pointer_At(event, name.index));
}

EventOutcome Move_View(Workspace& w, const WindowRow& window, const OperatorEvent& event,
                       Happening happening) {
  const ControlName name = Pointer_Target(w, window, event);
  return Tell_Control(w, window, name.name, happening, Pointer_At(event, name.index));
}

bool Is_Key_Of(const MenuRow& row, const OperatorEvent& event) {
  return row.key_code != 0 && row.key_code == event.key_code && row.key_shift == event.shift;
}

// Order of a key: the window's handler, the menu's accelerators, the focused control.
EventOutcome Key(Workspace& w, const WindowRow& window, const OperatorEvent& event) {
  ControlEvent key;
  key.key_code = event.key_code;
  key.shift = event.shift;
  EventOutcome outcome = Tell_Control(w, window, kWindowItself, Happening::KeyDown, key);
  bool taken = false;
  for (const MenuRow& row : window.menu) {
    if (!Is_Key_Of(row, event) || row.greyed) continue;
    taken = true;
    outcome = Worse(outcome, Run_Row(w, row));
  }
  if (taken) return outcome;
  const std::string& active = window.record(w).ActiveControl;
  return Worse(outcome,
               Key_In_Control(w, window, event.control.empty() ? active : event.control, key));
}

// A size that cannot be shown leaves the window and its panes as they are.
void Require_Room(const Workspace& w, const WindowRow& window, const OperatorEvent& event) {
  Require_Window_Size(event.x, event.y);
  if (&window == &All_Windows().front()) {
    Require_Room_For_Panes(Pane_Side(event.x, event.y, w.ImageCount), w.ImageCount);
  }
}

EventOutcome Resize(Workspace& w, const WindowRow& window, const OperatorEvent& event) {
  const EventOutcome room = Run_Handler(w, "Form_Resize", [&] { Require_Room(w, window, event); });
  if (room == EventOutcome::Error) return room;
  Form& form = window.record(w);
  form.ClientWidth = event.x;
  form.ClientHeight = event.y;
  return Tell_Control(w, window, kWindowItself, Happening::Resize, {});
}

EventOutcome Close(Workspace& w, const WindowRow& window) {
  const OperatorEvent closing = Close_Event(window);
  if (closing.kind != OperatorEvent::Kind::Close) return Handle_Window_Event(w, window, closing);
  window.record(w).Visible = false;
  Set_Focus(w.Form1, "");
  return EventOutcome::Done;
}

}  // namespace

EventOutcome Run_Handler(Workspace& w, const std::string& name,
                         const std::function<void()>& handler) {
  const EventOutcome outcome = Run_To_Its_End(w, name, handler);
  for (const std::string& notice : Take_Notices()) w.screen->Message_Box(notice);
  return outcome;
}

OperatorEvent Close_Event(const WindowRow& window) {
  using Kind = OperatorEvent::Kind;
  OperatorEvent event;
  event.form = window.name;
  event.control = window.closing;
  const bool is_menu_item = Find_Menu_Row(window.menu, window.closing) != nullptr;
  event.kind = event.control.empty() ? Kind::Close : is_menu_item ? Kind::Menu : Kind::Press;
  return event;
}

EventOutcome Handle_Event(Workspace& w, const OperatorEvent& event) {
  return Handle_Window_Event(w, Require_Window(event.form), event);
}

EventOutcome Handle_Window_Event(Workspace& w, const WindowRow& window,
                                 const OperatorEvent& event) {
  using Kind = OperatorEvent::Kind;
  switch (event.kind) {
    case Kind::Menu:
      return Choose_Row(w, Require_Row(window, event));
    case Kind::Command:
      return Run_Row(w, Require_Row(window, event));
    case Kind::Set:
      return Set_Control(w, window, Require_Name(event), event.text);
    case Kind::Press:
      return Press_Control(w, window, Require_Name(event));
    case Kind::Click:
      return Click(w, window, event);
    case Kind::DoubleClick:
      return Double_Click(w, window, event);
    case Kind::Move:
      return Move(w, window, event);
    case Kind::Wheel:
      return Move_View(w, window, event, Happening::Wheel);
    case Kind::Pan:
      return Move_View(w, window, event, Happening::Pan);
    case Kind::Key:
      return Key(w, window, event);
    case Kind::Resize:
      return Resize(w, window, event);
    case Kind::Close:
      return Close(w, window);
    case Kind::Undo:
    case Kind::Redo:
    case Kind::TakeBackLine:
      throw UnknownName("nothing is kept that could be undone; see the step history");
  }
  return EventOutcome::Done;
}

}  // namespace sylvomex
