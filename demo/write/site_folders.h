// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace sylvomex::demo {

/// Creates the drives c, d, e and f below the root with every fixed folder that a command reads
/// from or writes to, and root/sessions. RunTimeError(PathNotFound) naming the folder that
/// could not be created.
void Create_Site_Folders(const std::filesystem::path& root);

}  // namespace sylvomex::demo
