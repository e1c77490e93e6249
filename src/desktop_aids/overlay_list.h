// SPDX-License-Identifier: MIT
// What commands have drawn on the panes, to be drawn again by the same commands.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "desktop_aids/aided_panes.h"

namespace sylvomex {

struct DrawnOverlay {
  std::string command;                // of the main menu
  std::vector<DialogAnswer> answers;  // with which it drew
  std::vector<Colour> colours;        // of its marks, each once, in the order of drawing
  bool keeps = false;                 // is drawn again whenever panes are loaded anew
};

/// What a command draws, for the operator; empty for one that draws no overlay.
std::string Overlay_Meaning(const std::string& command);

/// The file that a command drew from, as it was chosen; empty for none.
std::string File_Of(const DrawnOverlay& overlay);

class OverlayList : public QObject, public EventWatcher {
 public:
  /// The panes must outlive it.
  explicit OverlayList(const AidedPanes& panes);
  ~OverlayList() override;

  [[nodiscard]] const std::vector<DrawnOverlay>& All() const { return overlays_; }
  void Keep(std::size_t index, bool keeps);
  void Forget(std::size_t index);

  /// Sends the command's event once more, its dialogs answered as before.
  void Draw_Again(std::size_t index);
  void Draw_All_Again();

  /// changed: called when an overlay was added, forgotten or drawn in other colours.
  void When_Changed(std::function<void()> changed) { changed_ = std::move(changed); }

  void Event_Begins(const OperatorEvent& event) override;
  void Event_Has_Ended(const OperatorEvent& event) override;

 private:
  struct PaneMarks {
    std::uint64_t bitmap = 0, erasures = 0;  // versions
    std::size_t marks = 0;
  };
  [[nodiscard]] PaneMarks Marks_Of(int pane) const;
  [[nodiscard]] std::vector<Colour> New_Colours() const;
  [[nodiscard]] bool Panes_Were_Loaded() const;
  void Note(DrawnOverlay overlay);
  void Draw_Kept();

  const AidedPanes& panes_;
  std::vector<DrawnOverlay> overlays_;
  std::array<PaneMarks, kAidedPanes> before_{};  // the present event
  bool draws_again_ = false;
  std::function<void()> changed_;
};

}  // namespace sylvomex
