// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "state/picture.h"

namespace sylvomex {

/// Writes what a pane shows, bitmap and marks, as PNG: the inside of the control, or the
/// bitmap in full where the control has no size yet. Raises RunTimeError for a picture
/// without any size and for a file that cannot be written.
void Save_Picture_Png(const Picture& picture, const std::filesystem::path& file);

}  // namespace sylvomex
