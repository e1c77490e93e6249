// SPDX-License-Identifier: MIT
// What the commands of the matching chain take from the block.
#pragma once

#include <string>

#include "imageblock/pane_renderer.h"
#include "platform/files.h"
#include "state/workspace.h"

namespace sylvomex {

/// The raw file of an image. The bytes stay valid while no other file is opened.
RawPixels Raw_Pixels_Of(Workspace& w, const ImageRecord& record);

/// A file whose text a command makes up as it goes: the lines so far are written when the
/// command ends, however it ends.
template <class Steps>
void With_Text_File(const FilePath& file, Steps&& steps) {
  Write_Whole_File(file, "");
  std::string text;
  try {
    steps(text);
  } catch (...) {
    Write_Whole_File(file, text);
    throw;
  }
  Write_Whole_File(file, text);
}

}  // namespace sylvomex
