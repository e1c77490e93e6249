// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/drive_map.h"

namespace sylvomex {

/// What to do about a start that fails because there is no data folder: sentences that name the
/// folder, --root and the demo. Empty when the folder is there.
std::string Start_Advice(const DriveMap& drives);

}  // namespace sylvomex
