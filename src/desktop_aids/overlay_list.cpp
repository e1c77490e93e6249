// SPDX-License-Identifier: MIT
#include "desktop_aids/overlay_list.h"

#include <QTimer>
#include <algorithm>

#include "desktop_aids/event_command.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

struct Meaning {
  const char* command;
  const char* text;
};

// Commands that draw and do nothing else that an operator would not want twice.
constexpr Meaning kMeanings[] = {
    {"Epipolar_line", "epipolar line of the last click"},
    {"Plot_Point_Set", "saved points"},
    {"Plot_Circular_Plot", "plot of 11.28 m"},
    {"Plot_3D_line_segments", "borders, at 155 m"},
    {"Plot_Field_measured_tree_data", "trees of a text file, and their numbers"},
    {"Plot_Crown_polygons", "points of crowns"},
    {"plot_als_bin_file", "echoes of 2004"},
    {"Print_ALS_near_solution", "echoes of 2006 by intensity, 2 to 250"},
    {"Plot_ALS_2007", "echoes of 2007 by intensity, 30 to 120"},
    {"Plot_Field_Plot_Data", "pine yellow, spruce green, others white; grid of 100 m"},
    {"Plot_Tie_Points", "tie points"},
    {"Get_elevation", "height scale to the raster ground"},
    {"Get_Raster_CHM_Elevation", "height scale to the raster canopy"},
    {"Get_TIN_elevation", "height scale to the triangulated ground"},
    {"Get_TIN_DTM_Opt", "height scale to the triangulated ground"},
    {"Get_TIN_CHM_Elev", "triangulated canopy around the solution"},
    {"Test_DEM", "raster ground model, low to high"},
    {"Cast_sun_ray", "sun ray from the solution, 60 m"},
};

bool Moves_The_View_Only(const OperatorEvent& event) {
  using Kind = OperatorEvent::Kind;  // marks are carried along, or come back with the step
  return event.kind == Kind::Wheel || event.kind == Kind::Pan || event.kind == Kind::Undo ||
         event.kind == Kind::Redo;
}

}  // namespace

std::string Overlay_Meaning(const std::string& command) {
  const auto* found = std::ranges::find(kMeanings, command, &Meaning::command);
  return found == std::end(kMeanings) ? "" : found->text;
}

std::string File_Of(const DrawnOverlay& overlay) {
  for (const DialogAnswer& answer : overlay.answers) {
    if (answer.kind == DialogKind::File && answer.text) return *answer.text;
  }
  return {};
}

OverlayList::OverlayList(const AidedPanes& panes) : panes_(panes) { panes.Owner().Bring_In(*this); }

OverlayList::~OverlayList() { panes_.Owner().Send_Away(*this); }

OverlayList::PaneMarks OverlayList::Marks_Of(int pane) const {
  const Picture& picture = panes_.Block().Form1.Picture1(pane);
  return {picture.bitmap_version, picture.erase_version, picture.marks.size()};
}

void OverlayList::Event_Begins(const OperatorEvent&) {
  for (int pane = 0; pane < kAidedPanes; ++pane) {
    before_.at(static_cast<std::size_t>(pane)) = Marks_Of(pane);
  }
}

std::vector<Colour> OverlayList::New_Colours() const {
  std::vector<Colour> colours;
  for (int pane = 0; pane < kAidedPanes; ++pane) {
    const PaneMarks& before = before_.at(static_cast<std::size_t>(pane));
    const std::vector<Mark>& marks = panes_.Block().Form1.Picture1(pane).marks;
    const bool goes_on = Marks_Of(pane).erasures == before.erasures;
    for (std::size_t k = goes_on ? before.marks : 0; k < marks.size(); ++k) {
      const Colour& colour = marks[k].colour;
      if (std::ranges::find(colours, colour) == colours.end()) colours.push_back(colour);
    }
  }
  return colours;
}

bool OverlayList::Panes_Were_Loaded() const {
  for (int pane = 0; pane < kAidedPanes; ++pane) {
    if (Marks_Of(pane).bitmap != before_.at(static_cast<std::size_t>(pane)).bitmap) return true;
  }
  return false;
}

void OverlayList::Event_Has_Ended(const OperatorEvent& event) {
  if (Moves_The_View_Only(event) || event.kind == OperatorEvent::Kind::Move) return;
  const std::string command = Command_Of(event);
  if (!Overlay_Meaning(command).empty()) {
    DrawnOverlay drawn{command, panes_.Owner().Answers(), New_Colours(), false};
    if (!drawn.colours.empty()) Note(std::move(drawn));
    return;
  }
  const bool are_kept = std::ranges::any_of(overlays_, &DrawnOverlay::keeps);
  if (!are_kept || draws_again_ || !Panes_Were_Loaded()) return;
  draws_again_ = true;
  QTimer::singleShot(0, this, [this] { Draw_Kept(); });
}

void OverlayList::Note(DrawnOverlay overlay) {
  const auto known = std::ranges::find_if(overlays_, [&](const DrawnOverlay& other) {
    return other.command == overlay.command && File_Of(other) == File_Of(overlay);
  });
  if (known == overlays_.end()) {
    overlays_.push_back(std::move(overlay));
  } else {
    const bool is_as_before = known->colours == overlay.colours;
    overlay.keeps = known->keeps;
    *known = std::move(overlay);
    if (is_as_before) return;
  }
  if (changed_) changed_();
}

void OverlayList::Keep(std::size_t index, bool keeps) { overlays_.at(index).keeps = keeps; }

void OverlayList::Forget(std::size_t index) {
  overlays_.erase(overlays_.begin() + static_cast<std::ptrdiff_t>(index));
  if (changed_) changed_();
}

void OverlayList::Draw_Again(std::size_t index) {
  if (panes_.Owner().Is_Busy()) return;
  const DrawnOverlay drawn = overlays_.at(index);
  OperatorEvent event = Choosing(drawn.command);
  panes_.Owner().Dispatch_Answered(event, drawn.answers);
}

void OverlayList::Draw_All_Again() {
  for (std::size_t k = 0; k < overlays_.size(); ++k) Draw_Again(k);
}

void OverlayList::Draw_Kept() {
  for (std::size_t k = 0; k < overlays_.size(); ++k) {
    if (overlays_[k].keeps) Draw_Again(k);
  }
  draws_again_ = false;
}

}  // namespace sylvomex
