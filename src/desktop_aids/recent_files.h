// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QObject>
#include <QStringList>
#include <functional>

#include "desktop/desktop.h"

namespace sylvomex {

/// The files that commands of the main menu asked for last, newest first. Choosing one runs its
/// command again, whose file dialogs are answered with it.
class RecentFiles : public QObject, public EventWatcher {
 public:
  static constexpr qsizetype kMost = 10;

  /// menu: shows them. Both must outlive it.
  RecentFiles(Desktop& desktop, QMenu& menu);
  ~RecentFiles() override;

  void Event_Has_Ended(const OperatorEvent& event) override;

  /// One line each: the command and the native paths of its files, with tabs between them.
  [[nodiscard]] const QStringList& Lines() const { return lines_; }
  void Show_Lines(const QStringList& lines);

  /// changed: called whenever a file was chosen, in a dialog of any window.
  void When_Changed(std::function<void()> changed) { changed_ = std::move(changed); }

 private:
  void Fill_Menu();
  void Open(const QString& line);

  Desktop& desktop_;
  QMenu& menu_;
  QStringList lines_;
  std::function<void()> changed_;
};

}  // namespace sylvomex
