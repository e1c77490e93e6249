// SPDX-License-Identifier: MIT
// What the commands of the matching chain take from the block.
#pragma once

#include <string>

#include "imageblock/image_record.h"
#include "imageblock/pane_renderer.h"
#include "platform/files.h"

namespace sylvomex {

struct Workspace;

/// The raw file of an image. The bytes stay valid while no other file is opened.
RawPixels Raw_Pixels_Of(Workspace& w, const ImageRecord& record);

}  // namespace sylvomex
