// SPDX-License-Identifier: MIT
// Sees every file that is about to be changed through the file layer: undo keeps what a step of
// measuring is going to overwrite, the desktop tells which files a command wrote.
#pragma once

#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

/// Joins the witnesses of the thread that makes it and leaves them at the end of its life. Each one
/// is told, of a coming change the one that joined last first; without one, nothing is done. An
/// exception that leaves a witness leaves the file alone and reaches the writer.
class WriteWitness {
 public:
  WriteWitness();
  virtual ~WriteWitness();
  WriteWitness(const WriteWitness&) = delete;
  WriteWitness& operator=(const WriteWitness&) = delete;

  /// The file is about to be opened for writing, replaced or removed. appends: its present content
  /// stays.
  virtual void Will_Change(const FilePath& file, bool appends) = 0;

  /// The text stands at the end of the file and is on the disk.
  virtual void Has_Appended(const FilePath& file, std::string_view text) = 0;
};

void Tell_Change(const FilePath& file, bool appends);
void Tell_Append(const FilePath& file, std::string_view text);

}  // namespace sylvomex
