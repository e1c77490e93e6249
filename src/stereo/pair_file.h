// SPDX-License-Identifier: MIT
// The text file that describes a stereo pair: 49 lines in a fixed order, headings in double
// quotes between the values.
#pragma once

#include <string>

#include "platform/list_reader.h"
#include "stereo/stereo_pair.h"

namespace sylvomex {

/// The whole file. Its numbers have a fixed count of decimals: coordinates 3, matrices 12.
std::string Pair_File_Text(const StereoPair& pair);

/// RunTimeErrors of the list reader, and RunTimeError(BadContent) naming file, line and item for
/// a raster without a name, a size below one pixel and a pixel size or principal distance that is
/// not above 0.
StereoPair Read_Pair_File(ListReader& file);

}  // namespace sylvomex
