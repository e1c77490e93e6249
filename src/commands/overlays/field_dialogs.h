// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "platform/drive_map.h"

namespace sylvomex {

struct Workspace;

/// Asks for the text file of a plot (its borders or its trees). This and the functions below return
/// std::nullopt when the dialog is dismissed.
std::optional<FilePath> Ask_Plot_Text_File(Workspace& w);

/// Asks for the binary tree file to write.
std::optional<FilePath> Ask_Tree_Data_File(Workspace& w);

/// Asks for a binary tree file to read.
std::optional<FilePath> Ask_Field_Tree_File(Workspace& w);

}  // namespace sylvomex
