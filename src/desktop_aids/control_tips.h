// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "desktop/desktop.h"

namespace sylvomex {

/// Tips over the controls: what they are for and the key that does the same. A text that is cut
/// short still stands in the tip, before them.
class ControlTips : public QObject {
 public:
  /// The desktop must outlive it.
  explicit ControlTips(Desktop& desktop);

  bool eventFilter(QObject* watched, QEvent* event) override;

  /// Of a control ("Form1", "Check2(0)"); empty for one that says everything itself.
  static QString Tip_Of(const QString& form, const QString& control);
};

}  // namespace sylvomex
