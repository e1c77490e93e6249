// SPDX-License-Identifier: MIT
#include "workspace/operator_event.h"

#include <new>

#include "workspace/control_events.h"
#include "workspace/control_lookup.h"
#include "workspace/form_resize.h"
#include "workspace/keys.h"
#include "workspace/menu_table.h"
#include "workspace/pointer.h"

namespace sylvomex {
namespace {

void Drop_Pointer_Shapes(Workspace& w) {
  w.Form1.MousePointer = PointerShape::Normal;
  for (Picture& picture : w.Form1.Picture1) picture.MousePointer = PointerShape::Normal;
}

// Whatever ends a handler early leaves no pointer shape behind.
class PointerGuard {
 public:
  explicit PointerGuard(Workspace& w) : w_(w) {}
  ~PointerGuard() {
    if (!done_) Drop_Pointer_Shapes(w_);
  }
  PointerGuard(const PointerGuard&) = delete;
  PointerGuard& operator=(const PointerGuard&) = delete;
  void Done() { done_ = true; }

 private:
  Workspace& w_;
  bool done_ = false;
};

template <class Handler>
void Run_Guarded(Workspace& w, Handler&& handler) {
  PointerGuard guard(w);
  handler();
  guard.Done();
}

// Runs a handler; a failure that passes it is shown under its name.
template <class Handler>
EventOutcome Run(Workspace& w, const std::string& name, Handler&& handler) {
  try {
    Run_Guarded(w, handler);
    return EventOutcome::Done;
  } catch (const RunTimeError& error) {
    w.screen->Report_Error(name, error.what(), error.Native_Path().string());
  } catch (const std::bad_alloc&) {
    w.screen->Report_Error(name, Failure_Text(Failure::OutOfMemory), "");
  }
  return EventOutcome::Error;
}

const MenuRow& Require_Row(const OperatorEvent& event) {
  const MenuRow* row = Find_Menu_Row(event.form, event.control);
  if (row == nullptr) {
    throw UnknownName("there is no menu item " + event.form + "." + event.control);
  }
  return *row;
}

EventOutcome Choose_Row(Workspace& w, const MenuRow& row) {
  if (row.greyed) return EventOutcome::Greyed;
  return Run(w, row.name, [&] { Run_Menu_Row(w, row); });
}

ControlName Require_Name(const OperatorEvent& event) {
  const auto name = Parse_Control_Name(event.control);
  if (!name) throw UnknownName("there is no control " + event.control);
  return *name;
}

int Require_Pane(Workspace& w, const OperatorEvent& event) {
  const ControlName name = Require_Name(event);
  const AnyControl control = Find_Control(w, event.form, name);
  Picture* const* picture = std::get_if<Picture*>(&control);
  if (picture == nullptr) {
    throw UnknownName("there is no picture " + event.form + "." + event.control);
  }
  if (!(*picture)->Visible) throw UnknownName(event.control + " is not shown");
  return name.index;
}

EventOutcome Click(Workspace& w, const OperatorEvent& event) {
  const int pane = Require_Pane(w, event);
  return Run(w, "Picture1_MouseDown",
             [&] { Picture1_MouseDown(w, pane, event.button, event.shift, event.x, event.y); });
}

EventOutcome Move_Over_Form(Workspace& w, const OperatorEvent& event) {
  if (Find_Form(w, event.form) == nullptr) throw UnknownName("there is no window " + event.form);
  if (event.form != "Form1") return EventOutcome::Done;
  return Run(w, "Form_MouseMove", [&] { Form_MouseMove(w); });
}

EventOutcome Move(Workspace& w, const OperatorEvent& event) {
  if (event.control.empty()) return Move_Over_Form(w, event);
  const ControlName name = Require_Name(event);
  const AnyControl control = Find_Control(w, event.form, name);
  if (std::holds_alternative<std::monostate>(control)) {
    throw UnknownName("there is no control " + event.form + "." + event.control);
  }
  if (std::holds_alternative<Picture*>(control)) {
    const int pane = Require_Pane(w, event);
    return Run(w, "Picture1_MouseMove", [&] { Picture1_MouseMove(w, pane, event.x, event.y); });
  }
  return Move_Over_Control(w, event.form, name);
}

EventOutcome Worse(EventOutcome a, EventOutcome b) { return a == EventOutcome::Done ? b : a; }

// The form sees the key first, then the menu's accelerators.
EventOutcome Main_Window_Key(Workspace& w, const OperatorEvent& event) {
  EventOutcome outcome =
      Run(w, "Form_KeyDown", [&] { Form_KeyDown(w, event.key_code, event.shift); });
  for (const MenuRow& row : Main_Menu()) {
    const bool matches =
        row.key_code != 0 && row.key_code == event.key_code && row.key_shift == event.shift;
    if (matches && !row.greyed) outcome = Worse(outcome, Choose_Row(w, row));
  }
  return outcome;
}

EventOutcome Resize(Workspace& w, const OperatorEvent& event) {
  Form* form = Find_Form(w, event.form);
  if (form == nullptr) throw UnknownName("there is no window " + event.form);
  form->ClientWidth = event.x;
  form->ClientHeight = event.y;
  if (event.form != "Form1") return EventOutcome::Done;
  return Run(w, "Form_Resize", [&] { Form_Resize(w); });
}

}  // namespace

EventOutcome Run_Handler(Workspace& w, const std::string& name,
                         const std::function<void()>& handler) {
  return Run(w, name, handler);
}

EventOutcome Handle_Event(Workspace& w, const OperatorEvent& event) {
  using Kind = OperatorEvent::Kind;
  switch (event.kind) {
    case Kind::Menu:
      return Choose_Row(w, Require_Row(event));
    case Kind::Command: {
      const MenuRow& row = Require_Row(event);
      return Run(w, row.name, [&] { Run_Menu_Row(w, row); });
    }
    case Kind::Set:
      return Set_Control(w, event.form, Require_Name(event), event.text);
    case Kind::Press:
      return Press_Control(w, event.form, Require_Name(event));
    case Kind::Click:
      return Click(w, event);
    case Kind::DoubleClick: {
      const EventOutcome first = Click(w, event);
      return Worse(first, Click(w, event));
    }
    case Kind::Move:
      return Move(w, event);
    case Kind::Key:
      if (event.form == "Form1") return Main_Window_Key(w, event);
      return Secondary_Window_Key(w, event);
    case Kind::Resize:
      return Resize(w, event);
  }
  return EventOutcome::Done;
}

}  // namespace sylvomex
