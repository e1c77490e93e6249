// SPDX-License-Identifier: MIT
// Undo and redo over the state of measuring: one step for each outer event that changed it or
// appended lines to a file.
//
// Memory is bounded: at most kMostSteps steps are kept, and beyond kMostPictureBytes the oldest
// steps give up the pictures of their panes, so that undoing one of them leaves the panes as they
// are. A change of the image set and a step of the tree-top search from the correlation images on
// end what can be taken back.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "history/file_changes.h"
#include "history/measuring_state.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {

inline constexpr std::size_t kMostSteps = 2000;
inline constexpr std::size_t kMostPictureBytes = std::size_t{512} << 20;

class History {
 public:
  /// Before and after the handler of an event, which may be nested in another one.
  void Before(Workspace& w, const OperatorEvent& event);
  void After(Workspace& w);

  /// The running event was cancelled: the block gets the state before it. What events inside it did
  /// stays, and so does everything once images were added, removed or replaced by correlation
  /// images. Call it before After.
  void Give_Back(Workspace& w);

  /// What the next undo, redo or taking back would do: "Click in image 3"; empty when there is
  /// nothing to do.
  [[nodiscard]] std::string Undo_Text() const;
  [[nodiscard]] std::string Redo_Text() const;
  [[nodiscard]] std::string Line_Text(Workspace& w) const;

  /// Whether a command runs: nothing can be undone then.
  [[nodiscard]] bool Is_In_Event() const { return depth_ > 0; }

  /// Gives the block and the files the state before the last step. False when there is no step, or
  /// while a command runs. RunTimeError, with nothing changed, when a file stands in the way.
  bool Undo(Workspace& w);

  /// Does the last undone step again. Directly after Take_Back_Line it puts the line back.
  bool Redo(Workspace& w);

  /// Moves the line that this program saved last in the present observation file to the file beside
  /// it and gives the measurement its number again: a step of its own. The rest as Undo.
  bool Take_Back_Line(Workspace& w);

  /// Another number whenever the texts may have changed.
  [[nodiscard]] std::uint64_t Version() const { return version_; }

  /// Number of steps that can be undone.
  [[nodiscard]] std::size_t Steps() const { return done_.size(); }

  /// What the last of the three did, with the line if there was one.
  [[nodiscard]] const std::string& Told() const { return told_; }

 private:
  struct Step {
    std::string words;
    MeasuringState before, after;
    FileChanges files;
    bool takes_line = false;
    std::size_t bytes = 0;  // of pictures and marks, beyond those of earlier steps
  };

  void Add(Step step);
  void Bound_Memory();
  void Forget_All();
  void Note_Lines(const FileChanges& files, bool forward);
  [[nodiscard]] std::optional<LineChange> Last_Line(Workspace& w) const;

  std::deque<Step> done_;
  std::vector<Step> undone_;
  MeasuringState present_;         // as last taken from the block
  std::optional<Step> running_;    // of the outermost event that is not only a movement
  std::string image_set_;          // when it began
  std::vector<LineChange> saved_;  // lines that were saved and not taken back, newest last
  FileChangeWatch watch_;
  std::string told_;
  std::uint64_t version_ = 0;
  std::size_t picture_bytes_ = 0;
  int depth_ = 0;                // of the events being handled
  int running_depth_ = 0;        // at which the running step began
  bool search_ran_ = false;      // in the running event
  bool has_inner_step_ = false;  // the running event had other ones inside it
};

}  // namespace sylvomex
