// SPDX-License-Identifier: MIT
#include "commands/matching/matching_inputs.h"

namespace sylvomex {

std::vector<int> Ticked_Images(const Workspace& w) {
  std::vector<int> images;
  for (int k = 0; k < w.ImageCount; ++k) {
    if (w.Form1.Check1(k).Value == 1) images.push_back(k);
  }
  return images;
}

RawPixels Raw_Pixels_Of(Workspace& w, const ImageRecord& record) {
  const MappedFile& file = w.RawFiles.Open(w.Drives.Locate(record.RawFileName.Trimmed()));
  return {file.Bytes(), record.SubWidth, record.SubHeight, &file.File()};
}

}  // namespace sylvomex
