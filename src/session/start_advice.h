// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/drive_map.h"

namespace sylvomex {

/// Advice for a start that fails because the data folder is missing: sentences that name the
/// folder, --root and the demo. Empty when the folder exists.
std::string Start_Advice(const DriveMap& drives);

}  // namespace sylvomex
