// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "demo/scene/flight.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

/// The header of an image as text: its 36 items in their fixed order, numbers so
/// that they read back the same, texts in quotes, no related rasters.
std::string Image_Header_Text(const ImageRecord& image);

/// Renders the photograph and writes its header and raw file under their drive names.
void Write_Photograph(const Scene& scene, const Photograph& photo, const DriveMap& drives);

}  // namespace sylvomex::demo
