// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "platform/drive_map.h"

namespace sylvomex {

struct Workspace;

/// The text file of a plot, its borders or its trees, by file dialog; nothing when it is dismissed,
/// here and below.
std::optional<FilePath> Ask_Plot_Text_File(Workspace& w);

/// The binary tree file to be written, by file dialog.
std::optional<FilePath> Ask_Tree_Data_File(Workspace& w);

/// A binary tree file to be read, by file dialog.
std::optional<FilePath> Ask_Field_Tree_File(Workspace& w);

}  // namespace sylvomex
