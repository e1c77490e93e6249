// SPDX-License-Identifier: MIT
// The progress of something that takes its time, with a button that cancels it. The strip below the
// panes has one; whatever runs uses it from Begin to End.
#pragma once

#include <QProgressBar>
#include <QPushButton>
#include <functional>
#include <utility>

class QLabel;

namespace sylvomex {

/// "12 s", "3 min 20 s", "2 h 5 min".
QString Duration_Text(double seconds);

class ProgressBar : public QWidget {
 public:
  /// What lasts shorter is not shown, seconds.
  static constexpr double kPatience = 0.5;

  ProgressBar();

  /// Another clock than that of the machine, seconds.
  void Use_Clock(std::function<double()> seconds) { seconds_ = std::move(seconds); }

  /// Something begins. lead_title: called with what stands before the title of the window, "42 % -
  /// ", and with "" at the end. cancel: called when the operator asks for the end; may be empty.
  void Begin(const QString& what, std::function<void()> cancel,
             std::function<void(const QString&)> lead_title = {});

  /// done: the share that is done, 0 to 1; below 0 where it is not known. Shows the bar once the
  /// time has come.
  void Update(double done);

  /// Hides the bar and what it puts before the title until the next Update; the time until then is
  /// no part of the estimate.
  void Rest();

  void End();

  [[nodiscard]] bool Is_Running() const { return is_running_; }

  /// As the button does; for the key.
  void Ask_For_Cancel();

 private:
  void Show_Done(double done);

  QLabel* what_;
  QProgressBar* bar_;
  QPushButton* button_;
  std::function<double()> seconds_;
  double begun_ = 0;
  double stretch_begun_ = 0;  // when the share was last below what it is now
  double stretch_start_ = 0;  // the share then
  double done_ = 0;
  std::function<void()> cancel_;
  std::function<void(const QString&)> lead_title_;
  bool is_running_ = false;
  bool is_resting_ = false;
};

}  // namespace sylvomex
