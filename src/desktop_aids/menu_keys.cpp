// SPDX-License-Identifier: MIT
#include "desktop_aids/menu_keys.h"

#include <QMenu>

namespace sylvomex {
namespace {

// With Alt these move the solution, choose a species or show trees.
const QString kCommandLetters = QStringLiteral("UDWENSMPL");

void Give_Mnemonics(QMenu& menu) {
  QString taken;
  for (QAction* action : menu.actions()) {
    if (action->isSeparator()) continue;
    action->setText(With_Mnemonic(action->text(), taken));
    if (action->menu() != nullptr) Give_Mnemonics(*action->menu());
  }
}

}  // namespace

QString With_Mnemonic(const QString& caption, QString& taken) {
  const qsizetype end =
      caption.contains(QLatin1Char('\t')) ? caption.indexOf(QLatin1Char('\t')) : caption.size();
  for (qsizetype at = 0; at < end; ++at) {
    const QChar letter = caption[at].toUpper();
    if (!letter.isLetter() || taken.contains(letter)) continue;
    taken += letter;
    return caption.left(at) + QLatin1Char('&') + caption.mid(at);
  }
  return caption;
}

void Give_Mnemonics(QMenuBar& bar) {
  QString taken = kCommandLetters;
  for (QAction* action : bar.actions()) {
    action->setText(With_Mnemonic(action->text(), taken));
    if (action->menu() != nullptr) Give_Mnemonics(*action->menu());
  }
}

QString Taken_Letters(const QMenuBar& bar) {
  QString taken = kCommandLetters;
  for (const QAction* action : bar.actions()) {
    const qsizetype mark = action->text().indexOf(QLatin1Char('&'));
    if (mark >= 0) taken += action->text()[mark + 1].toUpper();
  }
  return taken;
}

void Open_First_Menu(QMenuBar& bar) {
  if (bar.actions().isEmpty()) return;
  // The focus stays: the second Escape would return it to the bar, which no command's key reaches.
  bar.setActiveAction(bar.actions().constFirst());
}

}  // namespace sylvomex
