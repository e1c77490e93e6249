// SPDX-License-Identifier: MIT
// Commands that take their time: their progress in the strip and in the title, and their end when
// the operator asks for it.
#pragma once

#include <QObject>
#include <QPointer>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "desktop_aids/curtain.h"
#include "desktop_aids/progress_bar.h"
#include "platform/work_meter.h"

namespace sylvomex {

/// While a command computes, the strip alone is served: what else the operator types or clicks
/// waits until the command services events or ends, as it does without the aids.
class LongCommands : public QObject, public WorkWatcher {
 public:
  /// Both must outlive it.
  LongCommands(Desktop& desktop, ProgressBar& bar);
  ~LongCommands() override;

  void Look(double done) override;

  /// After every event and before every servicing.
  void Refresh();

  /// "Cancelled: Find clusters" once after a command was cancelled; else empty.
  std::string Take_Words();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Waiting {
    QPointer<QObject> target;
    std::unique_ptr<QEvent> event;
  };

  void Begin();
  void Serve_Bar();
  void Watch_Questions(const QObject* watched, const QEvent& event);
  void Release();
  void Keep(QObject* watched, QEvent* event);
  [[nodiscard]] bool Is_For_Bar(const QObject* watched, const QEvent* event) const;

  Desktop& desktop_;
  ProgressBar& bar_;
  std::unique_ptr<Curtain> curtain_;
  WatchedWork watched_{this};
  std::chrono::steady_clock::time_point looked_;
  std::vector<Waiting> waiting_;
  std::string words_;
  bool has_begun_ = false;  // and has the bar
  bool is_asked_ = false;
  bool is_serving_ = false;
};

}  // namespace sylvomex
