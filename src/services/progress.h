// SPDX-License-Identifier: MIT
// What a long command tells the operator while it runs, and what it hears from him.
#pragma once

#include <limits>
#include <string>
#include <utility>

#include "state/workspace.h"

namespace sylvomex {

/// One for each run of a long command. Every Report and every Service lets waiting events run,
/// so the image set and every table of the block may be another one afterwards.
class Progress {
 public:
  /// Reports to the status line.
  explicit Progress(Workspace& w) : Progress(w, w.Form1.Label10) {}

  /// Reports to a label of its own.
  Progress(Workspace& w, Label& line) : w_(w), line_(line), begun_(w.screen->Clock()) {}

  /// Services events.
  void Service() { w_.screen->Service_Events(); }

  /// Shows the text and services events.
  void Report(std::string text) {
    line_.Caption = std::move(text);
    Service();
  }

  /// Services events at every call, but makes and shows the text, text(), at most every half
  /// second; the first call shows it.
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

  /// Since the command began.
  [[nodiscard]] double Seconds() const { return w_.screen->Clock() - begun_; }

 private:
  static constexpr double kHalfSecond = 0.5;

  Workspace& w_;
  Label& line_;
  double begun_;
  double shown_ = -std::numeric_limits<double>::infinity();
};

}  // namespace sylvomex
