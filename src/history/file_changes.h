// SPDX-License-Identifier: MIT
// What the steps of measuring did to files, and how it is taken back.
//
// Lines that a step appended to a file of records move to a file beside it (NAME.taken) with the
// date; scratch files that carry a polygon or a template to the next click are given their former
// content. Whole files that a command writes stay as they are.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/drive_map.h"
#include "platform/write_witness.h"

namespace sylvomex {

/// Lines appended to a file of records, or taken from its end when `taken`.
struct LineChange {
  FilePath file;
  std::string lines;  // with their line ends
  bool taken = false;
};

/// A scratch file's content before and after; nullopt while it did not exist.
struct ScratchChange {
  FilePath file;
  std::optional<std::string> before, after;
};

struct FileChanges {
  std::vector<LineChange> lines;  // in the order of writing
  std::vector<ScratchChange> scratch;

  [[nodiscard]] bool Empty() const { return lines.empty() && scratch.empty(); }
};

/// RunTimeError that says what stands in the way of taking the changes back, or of making them
/// again: a file that another program has changed meanwhile. Nothing is changed.
void Require_Undoable(const FileChanges& changes);
void Require_Redoable(const FileChanges& changes);

/// RunTimeError when a file cannot be changed; what was moved until then is in both files.
void Undo_Files(const FileChanges& changes);
void Redo_Files(const FileChanges& changes);

/// Moves lines from the end of a file to the file beside it; RunTimeError, with both files as they
/// were, when they are not its last ones. A kill in between leaves the lines in both files.
void Take_Lines(const FilePath& file, const std::string& lines);

/// Sees what a step does to files. An event that appends more than kMostLines bytes keeps its
/// lines.
class FileChangeWatch : public WriteWitness {
 public:
  void Will_Change(const FilePath& file, bool appends) override;
  void Has_Appended(const FilePath& file, std::string_view text) override;

  /// The changes since the last call.
  FileChanges Take();

 private:
  static constexpr std::size_t kMostLines = 1 << 20;
  FileChanges seen_;
  std::vector<std::string> rewritten_;  // native paths of files that were written as a whole
  std::size_t bytes_ = 0;
};

}  // namespace sylvomex
