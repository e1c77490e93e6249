// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "desktop/desktop.h"

namespace sylvomex {

/// Escape and Enter in the windows beside the main one: Escape does what the close button of the
/// title bar does; Enter presses the button that has the focus, else the first one, unless the box
/// that has the focus handles Enter itself. In the main window and its docks Escape gives the keys
/// back to the panes.
class DialogKeys : public QObject {
 public:
  /// The desktop must outlive it.
  explicit DialogKeys(Desktop& desktop);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Give_Keys_To_Panes(const QWidget& focus);

  Desktop& desktop_;
};

}  // namespace sylvomex
