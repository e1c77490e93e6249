// SPDX-License-Identifier: MIT
// All menu items of the main window and all aids by name: type a part of it, Enter runs it.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <functional>
#include <vector>

#include "desktop/desktop.h"

namespace sylvomex {

class CommandPalette : public QDialog {
 public:
  /// The desktop must outlive it.
  explicit CommandPalette(Desktop& desktop);

  /// One more entry, which triggers the action or presses the button; both must outlive the
  /// palette.
  void Add_Aid(QAction& action);
  void Add_Aid(QAbstractButton& button);

  void Bring_Up();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Aid {
    QListWidgetItem* item;
    std::function<QString()> text;  // as it stands now
    std::function<bool()> can_run;
    std::function<void()> run;
  };

  void Fill();
  void Add(const QString& name, Aid aid);
  void Sort(const QString& typed);
  void Filter(const QString& typed);
  void Run_Chosen();

  Desktop& desktop_;
  QLineEdit* typed_;
  QLabel* none_;  // where nothing matches
  QListWidget* list_;
  std::vector<Aid> aids_;
};

}  // namespace sylvomex
