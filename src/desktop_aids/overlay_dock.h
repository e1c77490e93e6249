// SPDX-License-Identifier: MIT
// The dock "Overlays": what was drawn on the panes, with its colours, to be drawn again.
#pragma once

#include <QDockWidget>
#include <QPushButton>
#include <QTreeWidget>

#include "desktop_aids/overlay_list.h"

namespace sylvomex {

class OverlayDock : public QDockWidget {
 public:
  /// The panes must outlive it.
  explicit OverlayDock(const AidedPanes& panes);

  [[nodiscard]] OverlayList& List() { return list_; }
  [[nodiscard]] QTreeWidget& Table() { return *table_; }

 private:
  QPushButton* Add_Button(const char* name, const QString& text, std::function<void()> press);
  void Fill();

  OverlayList list_;
  QTreeWidget* table_;
  QWidget* buttons_;
};

/// The colours of an overlay: a few as squares beside each other, many as a band from blue to red.
QImage Legend_Picture(const std::vector<Colour>& colours, const QSize& size);

}  // namespace sylvomex
