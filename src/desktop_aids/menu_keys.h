// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <QString>

namespace sylvomex {

/// Gives the menus and their items letters to be reached by: Alt and a letter for a menu, except
/// letters that a command listens to, a letter alone inside an open menu.
void Give_Mnemonics(QMenuBar& bar);

/// The first letter of a caption (in which '&' is doubled) that is not among `taken` is marked and
/// added to them; a caption without such a letter stays as it is.
QString With_Mnemonic(const QString& caption, QString& taken);

/// The letters that a new menu of the bar must not take: those of its menus, and those that a
/// command listens to.
QString Taken_Letters(const QMenuBar& bar);

/// Opens the first menu, as F10 does.
void Open_First_Menu(QMenuBar& bar);

}  // namespace sylvomex
