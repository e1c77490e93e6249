// SPDX-License-Identifier: MIT
#include "commands/matching/matching_inputs.h"

#include "state/workspace.h"

namespace sylvomex {

RawPixels Raw_Pixels_Of(Workspace& w, const ImageRecord& record) {
  const MappedFile& file = w.RawFiles.Open(w.Drives.Locate(record.RawFileName.Trimmed()));
  return {file.Bytes(), record.SubWidth, record.SubHeight, &file.File()};
}

}  // namespace sylvomex
