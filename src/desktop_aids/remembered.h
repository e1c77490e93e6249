// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSettings>
#include <set>

#include "desktop/desktop.h"

namespace sylvomex {

/// What the operator has arranged comes back at the next start: the choices of the aids, the dock
/// Measured and its side, the places of the windows beside the main one. It is kept in the
/// operator's settings, apart from the block and from the root.
class Remembered : public QObject {
 public:
  /// After the aids; the desktop must outlive it. file: of the settings, in the INI format.
  Remembered(Desktop& desktop, const QString& file);

  bool eventFilter(QObject* watched, QEvent* event) override;

  /// The operator's own file.
  static QString Usual_File();

 private:
  void Follow_Choices(FormWindow& window);
  void Follow_Dock(FormWindow& window);
  void Put_In_Place(FormWindow& window);

  QSettings settings_;
  std::set<const QObject*> placed_;  // windows that have been shown
};

}  // namespace sylvomex
