// SPDX-License-Identifier: MIT
// What today's hands and eyes expect beside the described windows. A plain desktop and scripts do
// without it.
#pragma once

#include <array>
#include <optional>

#include "desktop_aids/aid_keys.h"
#include "desktop_aids/aided_panes.h"
#include "desktop_aids/aids_menu.h"
#include "desktop_aids/command_palette.h"
#include "desktop_aids/dock_places.h"
#include "desktop_aids/file_drops.h"
#include "desktop_aids/guide.h"
#include "desktop_aids/long_commands.h"
#include "desktop_aids/magnifier.h"
#include "desktop_aids/measured_dock.h"
#include "desktop_aids/overlay_dock.h"
#include "desktop_aids/pane_hands.h"
#include "desktop_aids/pane_heads.h"
#include "desktop_aids/pane_overlay.h"
#include "desktop_aids/recent_files.h"
#include "desktop_aids/strip.h"

namespace sylvomex {

class Aids {
 public:
  /// After Desktop::Start. The desktop must outlive the aids. is_dark: the look at first.
  explicit Aids(Desktop& desktop, bool is_dark = false);
  ~Aids();
  Aids(const Aids&) = delete;
  Aids& operator=(const Aids&) = delete;

  [[nodiscard]] Strip& Below() { return *strip_; }
  [[nodiscard]] Magnifier& Glass() { return *magnifier_; }
  [[nodiscard]] PaneOverlay& Overlay(int pane) {
    return *overlays_.at(static_cast<std::size_t>(pane));
  }
  [[nodiscard]] MeasuredDock& Measured() { return *measured_; }
  [[nodiscard]] OverlayDock& Overlays() { return *overlays_drawn_; }
  [[nodiscard]] CommandPalette& Palette() { return palette_; }
  [[nodiscard]] Guide& Help() { return *guide_; }
  [[nodiscard]] RecentFiles& Recent() { return recent_; }

 private:
  void Fill_Menu(bool is_dark);
  void Fill_Palette();
  void Refresh();
  void Add_Choice(const char* name, const QString& text, bool OverlayChoices::*choice);

  AidedPanes panes_;
  PaneHands hands_;
  PaneHeads heads_;
  OverlayChoices choices_;
  std::array<PaneOverlay*, kAidedPanes> overlays_{};  // owned by their panes
  Magnifier* magnifier_;                              // owned by the window
  Strip* strip_;                                      // owned by the window
  MeasuredDock* measured_;                            // owned by the window
  OverlayDock* overlays_drawn_;                       // owned by the window
  std::optional<DockPlaces> dock_places_;
  Guide* guide_;  // owned by the window
  LongCommands long_commands_;
  CommandPalette palette_;
  AidsMenu menu_;
  RecentFiles recent_;
  FileDrops drops_;
  AidKeys keys_;
};

}  // namespace sylvomex
