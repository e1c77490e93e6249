// SPDX-License-Identifier: MIT
// Painted over a pane, and anew whenever its view changes: the frame with what the pane shows, the
// observation, the tree tops, the saved points, small marks made larger. Nothing of it is a mark of
// the block.
#pragma once

#include <QImage>
#include <QWidget>

#include "desktop_aids/aided_panes.h"
#include "desktop_aids/measured_model.h"
#include "panes/pane_notes.h"

namespace sylvomex {

/// What the operator has chosen to see.
struct OverlayChoices {
  bool frames = true;
  bool tops = false;
  bool saved_points = false;
  bool large_marks = false;
  bool thin_labels = false;
  bool safe_colours = false;  // told apart by colour-blind eyes (Okabe and Ito 2008)

  bool operator==(const OverlayChoices&) const = default;
};

/// What stands at the foot of a pane, the fullest wording first.
QStringList Note_Wordings(const PaneNote& note);

class PaneOverlay : public QWidget {
 public:
  /// All of them must outlive it.
  PaneOverlay(const AidedPanes& panes, int pane, const OverlayChoices& choices,
              const MeasuredModel& saved);

  /// Repaints when something that it shows has changed.
  void Refresh();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Everything painted depends on these.
  struct Shown {
    OverlayChoices choices;
    std::string note;
    std::uint64_t bitmap_version = 0, erase_version = 0;
    std::size_t marks = 0;
    std::string search;  // name of the cluster search
    int tops = 0;
    std::uint64_t saved = 0;  // version of the saved points
    QSize size;
    bool operator==(const Shown&) const = default;
  };

  [[nodiscard]] Shown Now() const;
  void Paint_Frame(QPainter& painter) const;
  void Paint_Observation(QPainter& painter) const;
  [[nodiscard]] QRectF Label_Beside(const QPointF& at, const QFontMetrics& metrics,
                                    const QString& text) const;
  void Paint_Tops(QPainter& painter) const;
  void Paint_Saved_Points(QPainter& painter) const;
  void Paint_Large_Marks(QPainter& painter) const;

  const AidedPanes& panes_;
  int pane_;
  const OverlayChoices& choices_;
  const MeasuredModel& saved_;
  PaneNote note_;
  Shown shown_;
};

}  // namespace sylvomex
