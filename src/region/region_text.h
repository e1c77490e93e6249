// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "region/region_order.h"

namespace sylvomex {

/// Reads the TOML text of a region. folder: that of the file, for relative paths; name: the file in
/// messages. Refused, naming the key, for a text that is no TOML, a key that is not known, missing
/// or of another type, and a number that makes no sense.
RegionOrder Parse_Region(std::string_view text, const std::filesystem::path& folder,
                         const std::string& name);

/// Reads a region's file and the table of plots that it names.
RegionOrder Read_Region(const std::filesystem::path& file);

/// Whether a text can name a folder of results: 1 to 64 letters, digits, "-", "_" and ".", not
/// starting with a point.
bool Is_Task_Name(std::string_view text);

/// Whether a text can be the id of a plot, to which its task's id adds a few letters.
bool Is_Plot_Name(std::string_view text);

}  // namespace sylvomex
