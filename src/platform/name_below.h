// SPDX-License-Identifier: MIT
// Names that come out of a file and are joined to a fixed folder.
#pragma once

#include <string_view>

namespace sylvomex {

/// True when the name, joined behind a folder, lies in that folder or in one below it. False when
/// its ".." lead out, at any place of it, and when it begins as a path of its own, with a separator
/// or a drive. '/' and '\' both separate, as in the drive map.
bool Stays_Below(std::string_view name);

}  // namespace sylvomex
