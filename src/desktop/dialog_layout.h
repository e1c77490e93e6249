// SPDX-License-Identifier: MIT
// Dialogs show their texts in full: long lines are wrapped, and the window is wide enough for its
// title.
#pragma once

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace sylvomex {

/// Call last, when the box has its title and both texts, which are plain text.
void Lay_Out(QMessageBox& box);

/// Sizes and dates of the files in full. Call when the native dialog has been ruled out.
void Lay_Out(QFileDialog& dialog);

/// Call when the box has its title and its prompt, which is plain text.
void Lay_Out(QInputDialog& box);

}  // namespace sylvomex
