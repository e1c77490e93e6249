// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "imageblock/image_record.h"

namespace sylvomex {

/// The header file of an image, one item or group of items a line, in the order of its reader
/// (image_header.h), which gets every field back exactly.
std::string Image_Header_Text(const ImageRecord& image);

}  // namespace sylvomex
