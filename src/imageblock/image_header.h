// SPDX-License-Identifier: MIT
#pragma once

#include "imageblock/image_record.h"
#include "platform/list_reader.h"

namespace sylvomex {

/// Reads the 36 items of an image header (and four more for each related raster) in their
/// fixed order. RunTimeError of the list reader for a missing item, a text in place of a
/// number or a value outside its field's range; BandCount above 4 is a
/// RunTimeError(SubscriptOutOfRange) naming file, line and item.
ImageRecord Read_Image_Header(ListReader& header);

}  // namespace sylvomex
