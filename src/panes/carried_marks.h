// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "imageblock/pane_view.h"
#include "state/picture.h"

namespace sylvomex {

/// Loads a bitmap of another view into a picture and keeps its marks: each one moves to where the
/// new view shows its place in the photograph. The line of text in the pane's corner stays there.
void Load_Other_View(Picture& picture, std::shared_ptr<const PaneBitmap> bitmap,
                     const PaneView& before, const PaneView& after);

}  // namespace sylvomex
