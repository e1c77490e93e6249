// SPDX-License-Identifier: MIT
// All menu items of the main window by name: type a part of it, Enter runs it.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>

#include "desktop/desktop.h"

namespace sylvomex {

class CommandPalette : public QDialog {
 public:
  /// The desktop must outlive it.
  explicit CommandPalette(Desktop& desktop);

  void Bring_Up();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fill();
  void Filter(const QString& typed);
  void Run_Chosen();

  Desktop& desktop_;
  QLineEdit* typed_;
  QListWidget* list_;
};

}  // namespace sylvomex
