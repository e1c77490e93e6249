// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// The text file of a plot, its borders or its trees, by file dialog. RunTimeError(FileNotFound)
/// when the dialog is dismissed, here and below.
FilePath Ask_Plot_Text_File(Workspace& w);

/// The binary tree file to be written, by file dialog.
FilePath Ask_Tree_Data_File(Workspace& w);

/// A binary tree file to be read, by file dialog.
FilePath Ask_Field_Tree_File(Workspace& w);

}  // namespace sylvomex
