// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSettings>
#include <set>

#include "desktop_aids/aids.h"

namespace sylvomex {

/// What the operator has arranged comes back at the next start: the choices of the aids, the docks
/// with their sides and sizes, the places and sizes of the windows beside the main one, the recent
/// files and the folders of the file dialogs. It is kept in the operator's settings, apart from the
/// block and from the root.
class Remembered : public QObject {
 public:
  /// After the aids; the desktop must outlive it. file: of the settings, in the INI format.
  Remembered(Desktop& desktop, Aids& aids, const QString& file);

  bool eventFilter(QObject* watched, QEvent* event) override;

  /// The operator's own file.
  static QString Usual_File();

 private:
  void Follow_Choices(FormWindow& window);
  void Follow_Dock(FormWindow& window, const char* name);
  void Follow_Files(Desktop& desktop, RecentFiles& recent);
  void Put_In_Place(FormWindow& window);

  QSettings settings_;
  std::set<const QObject*> placed_;  // windows that have been shown
};

}  // namespace sylvomex
