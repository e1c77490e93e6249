// SPDX-License-Identifier: MIT
// Inputs that the matching commands read from the block.
#pragma once

#include <string>

#include "imageblock/image_record.h"
#include "imageblock/pane_renderer.h"
#include "platform/files.h"

namespace sylvomex {

struct Workspace;

/// The raw file of an image. The bytes stay valid until another file is opened.
RawPixels Raw_Pixels_Of(Workspace& w, const ImageRecord& record);

}  // namespace sylvomex
