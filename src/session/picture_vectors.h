// SPDX-License-Identifier: MIT
// Panes and windows as SVG or PDF.
#pragma once

#include <filesystem>
#include <string_view>

#include "state/picture.h"

namespace sylvomex {

struct Workspace;

/// Writes the inside of a picture, a pane's with the bar of Scale_Bar_Of, as a page of its size.
/// RunTimeError for a picture without a size and a file that cannot be written.
void Save_Picture_Vectors(const Workspace& w, const Picture& picture,
                          const std::filesystem::path& file);

/// Writes all pictures that a window ("Form1") shows, at their places in it, panes with their bars
/// and the ids of their images. The page ends where the pictures do. RunTimeError for a window that
/// shows none and a file that cannot be written.
void Save_Window_Vectors(Workspace& w, std::string_view form, const std::filesystem::path& file);

}  // namespace sylvomex
