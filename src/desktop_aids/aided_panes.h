// SPDX-License-Identifier: MIT
// The panes of the main window, for the aids that stand over them.
#pragma once

#include <array>
#include <optional>

#include "desktop/desktop.h"
#include "imageblock/pane_view.h"

namespace sylvomex {

inline constexpr int kAidedPanes = 9;

class AidedPanes {
 public:
  /// The desktop must outlive the panes.
  explicit AidedPanes(Desktop& desktop);

  [[nodiscard]] PictureWidget& Widget(int pane) const;

  /// std::nullopt for another object.
  [[nodiscard]] std::optional<int> Index_Of(const QObject* widget) const;

  /// The shown pane under a global position, and the position in it; std::nullopt for none.
  struct Place {
    int pane = 0;
    QPointF at;  // pane pixels
  };
  [[nodiscard]] std::optional<Place> Under(const QPointF& global) const;

  /// An event on a pane, at a pane position.
  static OperatorEvent Event_On(OperatorEvent::Kind kind, int pane, const QPointF& at);

  [[nodiscard]] Desktop& Owner() const { return desktop_; }
  [[nodiscard]] Workspace& Block() const { return desktop_.Block(); }

 private:
  Desktop& desktop_;
  std::array<PictureWidget*, kAidedPanes> widgets_{};
};

/// Pane pixels of a position in the pane's widget.
QPointF Pane_Position(const QPointF& in_widget);

/// Whether a key that reaches an object is one for the panes: in the main window, while its focus
/// is not on a control in which the key types text, searches or presses something.
bool Is_Key_For_Panes(const AidedPanes& panes, const QObject* receiver, int key);

}  // namespace sylvomex
