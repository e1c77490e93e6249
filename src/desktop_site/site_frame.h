// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

#include "services/world_frame.h"

namespace sylvomex {

/// Whether the folder of the drives is a site.
bool Has_Site(const std::filesystem::path& root);

/// The coordinate system and the shift of a site; std::nullopt for a folder that is none, whose
/// site.toml cannot be read, or that nothing has been imported into.
std::optional<WorldFrame> Frame_Of_Site(const std::filesystem::path& root);

}  // namespace sylvomex
