// SPDX-License-Identifier: MIT
#include "services/ticked_images.h"

#include "state/workspace.h"

namespace sylvomex {

std::vector<int> Ticked_Images(const Workspace& w) {
  std::vector<int> images;
  for (int k = 0; k < w.ImageCount; ++k) {
    if (w.Form1.Check1(k).Value == 1) images.push_back(k);
  }
  return images;
}

}  // namespace sylvomex
