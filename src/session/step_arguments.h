// SPDX-License-Identifier: MIT
// Conversion of step arguments. An invalid argument throws StepEnd with its reason.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

double Real_Argument(const std::string& text);
long Whole_Argument(const std::string& text);

/// A file named by a script or the command line: "c:\data\a.png" lies on a drive; a name without a
/// drive is a native path, relative to the current folder unless it starts with '/'.
std::filesystem::path File_Argument(const DriveMap& drives, std::string_view name);

}  // namespace sylvomex
