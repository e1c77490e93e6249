// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

/// Calls take(line, "<file>, line <n>") for every line of a text file that is not blank, without
/// its line end. Refused for a file that cannot be read.
void For_Each_Line(const FilePath& file,
                   const std::function<void(std::string_view, const std::string&)>& take);

}  // namespace sylvomex
