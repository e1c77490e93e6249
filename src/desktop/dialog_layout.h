// SPDX-License-Identifier: MIT
// Dialogs show their texts whole: long lines are wrapped, and the window is as wide as its title.
#pragma once

#include <QInputDialog>
#include <QMessageBox>

namespace sylvomex {

/// To be called last, when the box has its title and both its texts; they are plain text.
void Lay_Out(QMessageBox& box);

/// To be called when the box has its title and its prompt, which is plain text.
void Lay_Out(QInputDialog& box);

}  // namespace sylvomex
