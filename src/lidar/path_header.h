// SPDX-License-Identifier: MIT
// Path headers: text files of one line with the folder of a campaign's tiles.
#pragma once

#include <string>

#include "platform/drive_map.h"

namespace sylvomex {

/// The prefix of the tile names: the first item, a plain or quoted text up to a comma or the
/// line's end. Tile names are joined straight to it, so it ends in a backslash.
/// RunTimeError(FileNotFound) for a missing header, RunTimeError(InputPastEnd) for an empty one.
std::string Read_Path_Header(const FilePath& header);

}  // namespace sylvomex
