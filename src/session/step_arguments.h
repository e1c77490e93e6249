// SPDX-License-Identifier: MIT
// Arguments of steps as values. A refused argument raises StepEnd with its reason.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

double Real_Argument(const std::string& text);
long Whole_Argument(const std::string& text);

/// A file that a script or the command line names: "c:\data\a.png" lies on a drive, a name
/// without a drive is native, relative to the present folder unless it starts with '/'.
std::filesystem::path File_Argument(const DriveMap& drives, std::string_view name);

}  // namespace sylvomex
