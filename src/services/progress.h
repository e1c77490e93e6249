// SPDX-License-Identifier: MIT
// Progress of a long command: reports to the operator and the operator's request to stop.
#pragma once

#include <limits>
#include <string>
#include <utility>

#include "platform/work_meter.h"
#include "state/workspace.h"

namespace sylvomex {

/// One for each run of a long command. Every Report and every Service runs waiting events, so the
/// image set and every table of the block may have changed afterwards.
class Progress {
 public:
  /// Reports to the status line.
  explicit Progress(Workspace& w) : Progress(w, w.Form1.Label10) {}

  /// Reports to another label.
  Progress(Workspace& w, Label& line) : w_(w), line_(line), begun_(w.screen->Clock()) {}

  /// Services events; here the command can be cancelled.
  void Service() {
    w_.screen->Service_Events();
    Look_At_Work();
  }

  /// Shows the text and services events.
  void Report(std::string text) {
    line_.Caption = std::move(text);
    Service();
  }

  /// Services events at every call, but composes text() and shows it at most every half second,
  /// starting with the first call.
  template <class Text>
  void Report_Seldom(Text&& text) {
    const double now = w_.screen->Clock();
    if (now - shown_ >= kHalfSecond) {
      shown_ = now;
      line_.Caption = text();
    }
    Service();
  }

  /// Whether Check4 ("Esc") is ticked.
  [[nodiscard]] bool Stop_Asked() const { return w_.Form1.Check4.Value != 0; }

  /// Seconds since the command began.
  [[nodiscard]] double Seconds() const { return w_.screen->Clock() - begun_; }

 private:
  static constexpr double kHalfSecond = 0.5;

  Workspace& w_;
  Label& line_;
  double begun_;
  double shown_ = -std::numeric_limits<double>::infinity();
};

}  // namespace sylvomex
