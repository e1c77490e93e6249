// SPDX-License-Identifier: MIT
// The strip below the panes: undo, redo and taking back with what they would do, what a command
// wrote, the modes that are on, and the place on the ground under the pointer.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <cstdint>
#include <optional>

#include "desktop_aids/aided_panes.h"
#include "desktop_aids/progress_bar.h"
#include "services/world_frame.h"
#include "services/written_files.h"

namespace sylvomex {

/// A label that shows the first of several wordings that fits into its width, never a part of one.
class FittingLabel : public QLabel {
 public:
  using QLabel::QLabel;

  void Show_Words(const std::vector<std::string>& fullest_first);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();
  QStringList words_;
};

class Strip : public QStatusBar {
 public:
  /// Stands below the client area of the main window from now on, which owns it.
  explicit Strip(const AidedPanes& panes);
  ~Strip() override;

  /// Shows the present state of the block and of the history.
  void Refresh();

  /// Places are told in the world, too, when its frame is known.
  void Show_World(const std::optional<WorldFrame>& world);

  /// Tells the ground at a place of a pane, until the pointer moves on or leaves the panes.
  void Show_Place_At(const AidedPanes::Place& place);

  /// Shows words with what was written since the last event, until the next ones.
  void Tell(const std::string& words);

  /// Stands in the place of the words while something runs.
  [[nodiscard]] ProgressBar& Progress() { return *progress_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Lay_Out();
  void Size_Buttons();
  QPushButton* Add_Button(OperatorEvent::Kind kind, const char* name);
  void Ask_For(OperatorEvent::Kind kind);
  void Show_Message(const std::string& message);
  void Refresh_Buttons();
  bool Take_Key(const QObject* receiver, const QKeyEvent& key);
  void Show_Place();

  AidedPanes panes_;
  WrittenFiles written_;
  QPushButton* undo_ = nullptr;  // null without a history
  QPushButton* redo_ = nullptr;
  QPushButton* take_back_ = nullptr;
  FittingLabel* message_;
  ProgressBar* progress_ = nullptr;
  FittingLabel* mode_;
  FittingLabel* place_;
  std::optional<AidedPanes::Place> pointer_;
  std::optional<WorldFrame> world_;
  std::optional<std::uint64_t> shown_version_;  // of the history's texts
};

}  // namespace sylvomex
