// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>

#include "desktop/desktop.h"
#include "services/dropped_files.h"

namespace sylvomex {

/// Image headers, raster height models, TINs and maps that are dropped on the main window or on the
/// map window are opened by their commands, whose file dialogs are answered with them. Whether a
/// model is one of the ground or of the canopy is asked in a menu at the pointer.
class FileDrops : public QObject {
 public:
  /// The desktop must outlive it.
  explicit FileDrops(Desktop& desktop);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Take(const std::vector<std::filesystem::path>& files, const QPoint& where);
  void Add(const DroppedFile& file, const QPoint& where);
  void Run(const OperatorEvent& chosen, const DroppedFile& file);
  void Open_In_Map_Window(const DroppedFile& map);

  Desktop& desktop_;
};

}  // namespace sylvomex
