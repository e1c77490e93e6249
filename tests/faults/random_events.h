// SPDX-License-Identifier: MIT
// Random events over all windows: clicks on panes and controls, keys, menu items, boxes, wheel and
// drag, sizes, closing, undo and redo, with dialogs answered at random and events inside events.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "faults/random_site.h"
#include "workspace/operator_event.h"
#include "workspace/window_table.h"

namespace sylvomex {

class RandomScreen;

class RandomEvents {
 public:
  RandomEvents(std::mt19937& random, RandomScreen& screen) : random_(random), screen_(screen) {}

  OperatorEvent Next(Workspace& w);

 private:
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  const WindowRow& Some_Window(Workspace& w);
  const ControlRow* Some_Control(const WindowRow& window, bool is_picture, Workspace& w);
  std::string Name_Of(const ControlRow& row);
  OperatorEvent On_Picture(Workspace& w, const WindowRow& window, OperatorEvent event);
  OperatorEvent On_Control(Workspace& w, const WindowRow& window, OperatorEvent event);
  OperatorEvent Key(OperatorEvent event);
  OperatorEvent Size(OperatorEvent event);

  std::mt19937& random_;
  RandomScreen& screen_;
};

/// What came of a run.
struct EventCounts {
  long events = 0;   // all, also those inside others
  long inside = 0;   // inside a command or while a dialog was open
  long refused = 0;  // on something that is not there or not shown
  long errors = 0;   // commands that ended in an error
  long dialogs = 0;
  long sessions = 0;   // each over a new block
  double slowest = 0;  // seconds
  std::string slowest_event;
};

/// Plays events until there were `count`, in sessions of some hundreds. Fails the test when a
/// pointer shape is left over, or files stay open.
EventCounts Play_Random_Events(std::uint32_t seed, long count);

}  // namespace sylvomex
