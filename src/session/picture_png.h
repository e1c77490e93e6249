// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "state/picture.h"

namespace sylvomex {

/// Writes a pane's bitmap and marks as PNG: the inside of the control, or the whole
/// bitmap when the control has no size yet. Throws RunTimeError for a picture without any
/// size and for a file that cannot be written.
void Save_Picture_Png(const Picture& picture, const std::filesystem::path& file);

}  // namespace sylvomex
