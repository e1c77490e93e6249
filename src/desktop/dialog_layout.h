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

/// How much larger than usual the letters of menus and dialogs are; at least 1.
double Growth_Of_Letters();

/// A size that leaves room for the frame on the screen that the owner is on.
QSize Within_Screen(const QWidget& owner, QSize wanted);

/// A size for a window, given for usual letters: it grows with them, but no further than the screen
/// that its owner is on has room for.
QSize Fitting_Size(const QWidget& owner, QSize wanted);

}  // namespace sylvomex
