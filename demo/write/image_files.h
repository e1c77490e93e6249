// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

/// An image header as text: its 36 items in their fixed order, numbers that read back exactly,
/// texts in quotes, no related rasters.
std::string Image_Header_Text(const ImageRecord& image);

/// Writes the photograph's header and its raw pixels under their drive names.
void Write_Photograph(const Photograph& photo, const std::vector<std::uint8_t>& pixels,
                      const DriveMap& drives);

}  // namespace sylvomex::demo
