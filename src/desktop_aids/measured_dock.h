// SPDX-License-Identifier: MIT
// The dock "Measured": the lines of the observation file; choosing one brings its point to the
// middle of every pane.
#pragma once

#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include "desktop_aids/aided_panes.h"
#include "desktop_aids/measured_model.h"

namespace sylvomex {

class MeasuredDock : public QDockWidget {
 public:
  /// The panes must outlive it.
  explicit MeasuredDock(const AidedPanes& panes);

  /// Reads the observation file again when it has changed, while the dock is shown.
  void Refresh();

  [[nodiscard]] MeasuredModel& Model() { return model_; }
  [[nodiscard]] QTableView& Table() { return *table_; }
  [[nodiscard]] QLineEdit& Filter_Box() { return *filter_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Show_Count();
  void Go_To(int row);

  const AidedPanes& panes_;
  MeasuredModel model_;
  QLineEdit* filter_;
  QLabel* count_;
  QTableView* table_;
};

}  // namespace sylvomex
