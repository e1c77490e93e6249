// SPDX-License-Identifier: MIT
#include "history/history.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "history/backwards.h"
#include "history/event_words.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "state/workspace.h"
#include "workspace/menu_table.h"

namespace sylvomex {
namespace {

// What these compute is too large to be kept, and what comes before them must fit to it.
bool Is_Search_Step(const OperatorEvent& event) {
  constexpr std::array<std::string_view, 4> kSearch{"Compute_Correlation_Images",
                                                    "Create_XYZ_Point_Set",
                                                    "Compute_Back_Projections", "Find_clusters"};
  const MenuRow* row = Chosen_Item(event);
  return row != nullptr && std::ranges::find(kSearch, row->name) != kSearch.end();
}

// The pointer, the views and the window; steps that follow remember where they were.
bool Moves_Only(const OperatorEvent& event) {
  using Kind = OperatorEvent::Kind;
  return event.kind == Kind::Move || event.kind == Kind::Wheel || event.kind == Kind::Pan ||
         event.kind == Kind::Resize;
}

// They fill the boxes of the options and hide them again.
bool Opens_Or_Leaves_Options(const OperatorEvent& event) {
  const MenuRow* row = Chosen_Item(event);
  if (row == nullptr) return false;
  const std::string_view name = row->name;
  return name == "Open_Options_Window" || (event.form == "Form2" && name == "close_window");
}

std::string Without_Line_End(std::string line) {
  if (line.ends_with('\n')) line.pop_back();
  return line;
}

// The number of the measurement on the last line.
std::int16_t Number_Of(const std::string& line) {
  return Parse_Int16(line.substr(0, line.find(',')));
}

// The last line of what was appended at once.
std::string Last_Of(const std::string& lines) {
  const std::size_t end =
      lines.size() < 2 ? std::string::npos : lines.rfind('\n', lines.size() - 2);
  return end == std::string::npos ? lines : lines.substr(end + 1);
}

// Correlation images that were completed in a search step stay with their tables.
bool Shows_New_Correlations(Workspace& w, const MeasuringState& before) {
  for (int k = 0; k < w.ImageCount; ++k) {
    const auto& pane = before.panes.at(static_cast<std::size_t>(k));
    const bool is_new = pane == nullptr || pane->bitmap != w.Form1.Picture1(k).bitmap;
    if (w.ImageKinds(k) == 2 && is_new) return true;
  }
  return false;
}

void Set_Number(Workspace& w, std::int16_t number) {
  w.NextMeasurementNumber = number;
  w.Form1.Label2.Caption = "Measurement number: " + Plain_Text(number);
}

}  // namespace

void History::Before(Workspace& w, const OperatorEvent& event) {
  if (Is_Search_Step(event)) search_ran_ = true;
  ++depth_;
  // While a movement is handled, a click can arrive: it is a step like any other.
  if (Moves_Only(event) || Opens_Or_Leaves_Options(event)) return;
  has_inner_step_ = running_.has_value();
  if (running_) return;
  running_depth_ = depth_;
  watch_.Take();
  image_set_ = Image_Set_Bytes(w);
  present_ = Take_State(w, present_);
  running_ = Step();
  running_->words = Event_Words(event);
  running_->before = present_;
}

void History::Give_Back(Workspace& w) {
  if (!running_ || depth_ != running_depth_ || has_inner_step_) return;
  if (Image_Set_Bytes(w) != image_set_ || Shows_New_Correlations(w, running_->before)) return;
  Restore(w, running_->before, Take_State(w, running_->before));
}

void History::After(Workspace& w) {
  if (depth_-- != running_depth_ || !running_) return;
  Step step = *std::exchange(running_, std::nullopt);
  step.files = watch_.Take();
  Note_Lines(step.files, true);
  present_ = Take_State(w, present_);
  if (std::exchange(search_ran_, false) || Image_Set_Bytes(w) != image_set_) return Forget_All();
  if (step.before == present_ && step.files.Empty()) return;
  step.after = present_;
  Add(std::move(step));
}

void History::Add(Step step) {
  step.bytes = Bytes_Beside(step.after, step.before);
  if (!done_.empty()) step.bytes += Bytes_Beside(step.before, done_.back().after);
  picture_bytes_ += step.bytes;
  ++version_;
  undone_.clear();
  done_.push_back(std::move(step));
  Bound_Memory();
}

void History::Bound_Memory() {
  if (done_.size() > kMostSteps) {
    picture_bytes_ -= done_.front().bytes;
    done_.pop_front();
  }
  for (Step& step : done_) {
    if (picture_bytes_ <= kMostPictureBytes) return;
    picture_bytes_ -= std::exchange(step.bytes, 0);
    step.before.panes = {};
    step.after.panes = {};
  }
}

void History::Forget_All() {
  ++version_;
  done_.clear();
  undone_.clear();
  picture_bytes_ = 0;
}

/// Keeps the list of saved lines in step with the files.
void History::Note_Lines(const FileChanges& files, bool forward) {
  for (const LineChange& change : files.lines) {
    if (change.taken != forward) {
      saved_.push_back(change);
      saved_.back().taken = false;
      continue;
    }
    const auto of_the_same = [&](const LineChange& saved) {
      return saved.file.native == change.file.native && saved.lines == change.lines;
    };
    const auto found = std::find_if(saved_.rbegin(), saved_.rend(), of_the_same);
    if (found != saved_.rend()) saved_.erase(std::next(found).base());
  }
  if (saved_.size() > kMostSteps) saved_.erase(saved_.begin());
}

std::string History::Undo_Text() const { return done_.empty() ? "" : done_.back().words; }

std::string History::Redo_Text() const {
  if (!undone_.empty()) return undone_.back().words;
  return !done_.empty() && done_.back().takes_line ? done_.back().words : "";
}

std::optional<LineChange> History::Last_Line(Workspace& w) const {
  const std::filesystem::path native = w.Drives.Locate(w.ObservationFileName).native;
  for (const LineChange& saved : Backwards(saved_)) {
    if (saved.file.native == native) return LineChange{saved.file, Last_Of(saved.lines), true};
  }
  return std::nullopt;
}

std::string History::Line_Text(Workspace& w) const {
  const auto line = Last_Line(w);
  return line ? line->file.name + ": " + Without_Line_End(line->lines) : "";
}

bool History::Undo(Workspace& w) {
  if (depth_ > 0 || done_.empty()) return false;
  Require_Undoable(done_.back().files);
  Undo_Files(done_.back().files);
  watch_.Take();
  Note_Lines(done_.back().files, false);
  Step step = std::move(done_.back());
  done_.pop_back();
  picture_bytes_ -= step.bytes;
  present_ = Restore(w, step.before, Take_State(w, present_));
  told_ = step.words;
  ++version_;
  undone_.push_back(std::move(step));
  return true;
}

bool History::Redo(Workspace& w) {
  if (depth_ > 0) return false;
  if (undone_.empty()) {
    if (done_.empty() || !done_.back().takes_line || !Undo(w)) return false;
    undone_.clear();
    told_ += ", put back";
    return true;
  }
  Require_Redoable(undone_.back().files);
  Redo_Files(undone_.back().files);
  watch_.Take();
  Note_Lines(undone_.back().files, true);
  Step step = std::move(undone_.back());
  undone_.pop_back();
  present_ = Restore(w, step.after, Take_State(w, present_));
  told_ = step.words;
  ++version_;
  picture_bytes_ += step.bytes;
  done_.push_back(std::move(step));
  return true;
}

bool History::Take_Back_Line(Workspace& w) {
  const auto line = Last_Line(w);
  if (depth_ > 0 || !line) return false;
  const std::int16_t number = Number_Of(line->lines);
  Take_Lines(line->file, line->lines);
  watch_.Take();
  Step step;
  step.before = present_ = Take_State(w, present_);
  Set_Number(w, number);
  step.after = present_ = Take_State(w, present_);
  step.words = told_ =
      "Line taken back from " + line->file.name + ": " + Without_Line_End(line->lines);
  step.takes_line = true;
  step.files.lines.push_back(*line);
  Note_Lines(step.files, true);
  Add(std::move(step));
  return true;
}

}  // namespace sylvomex
