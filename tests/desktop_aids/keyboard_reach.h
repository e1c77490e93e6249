// SPDX-License-Identifier: MIT
// What of a window hands without a mouse and eyes that listen can use.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBrowser>
#include <set>
#include <string>
#include <vector>

namespace sylvomex {

inline bool Is_Control(const QWidget& widget) {
  return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
         qobject_cast<const QTextEdit*>(&widget) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(&widget) != nullptr;
}

/// The controls below a widget that are shown, can be used and take the focus.
inline std::vector<QWidget*> Usable_Controls(const QWidget& inside) {
  std::vector<QWidget*> usable;
  for (QWidget* widget : inside.findChildren<QWidget*>()) {
    const bool is_part = widget->focusProxy() != nullptr ||
                         qobject_cast<const QComboBox*>(widget->parentWidget()) != nullptr;
    if (!Is_Control(*widget) || is_part || widget->focusPolicy() == Qt::NoFocus) continue;
    if (widget->isVisibleTo(&inside) && widget->isEnabledTo(&inside)) usable.push_back(widget);
  }
  return usable;
}

/// As a message of a failed check says it.
inline std::string Described(const QWidget& widget) {
  return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString() +
         " of " + widget.window()->windowTitle().toStdString();
}

inline QString Spoken_Name(QWidget& widget) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
  return spoken == nullptr ? QString() : spoken->text(QAccessible::Name);
}

inline void Expect_All_Are_Named(const QWidget& inside) {
  for (QWidget* widget : Usable_Controls(inside)) {
    const QString name = Spoken_Name(*widget);
    EXPECT_FALSE(name.trimmed().isEmpty()) << Described(*widget);
    EXPECT_FALSE(!name.isEmpty() && name == widget->objectName()) << Described(*widget);
  }
}

/// Presses Tab until the focus has gone round. The window must be the active one.
inline std::set<QWidget*> Reached_By_Tab(QWidget& window) {
  constexpr int kMostTabs = 400;
  std::set<QWidget*> reached;
  for (int k = 0; k < kMostTabs; ++k) {
    QWidget* focus = window.focusWidget();
    if (focus != nullptr && !reached.insert(focus).second && k > 1) break;
    QTest::keyClick(focus != nullptr ? focus : &window, Qt::Key_Tab);
  }
  return reached;
}

inline void Expect_Tab_Reaches_All(QWidget& window, const QWidget& inside) {
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 60000)) << window.windowTitle().toStdString();
  const std::set<QWidget*> reached = Reached_By_Tab(window);
  for (QWidget* widget : Usable_Controls(inside)) {
    const auto* radio = qobject_cast<const QAbstractButton*>(widget);
    const bool by_arrows = radio != nullptr && radio->autoExclusive();
    EXPECT_TRUE(by_arrows || reached.contains(widget)) << Described(*widget);
  }
}

inline void Press_Escape_In(QWidget& window) {
  QWidget* focus = window.focusWidget();
  QTest::keyClick(focus != nullptr ? focus : &window, Qt::Key_Escape);
  QApplication::processEvents();
}

/// No two items of a menu have the same letter.
inline void Expect_Letters_Differ(const QList<QAction*>& items, const QString& menu) {
  std::set<QChar> letters;
  for (const QAction* action : items) {
    const qsizetype mark = action->text().indexOf(QLatin1Char('&'));
    if (mark < 0 || mark + 1 >= action->text().size()) continue;
    const QChar letter = action->text()[mark + 1].toUpper();
    EXPECT_TRUE(letters.insert(letter).second)
        << menu.toStdString() << " > " << action->text().toStdString();
  }
}

inline void Expect_Letters_Differ_In_All_Menus(const QWidget& window) {
  for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
    Expect_Letters_Differ(bar->actions(), window.windowTitle());
  }
  for (const QMenu* menu : window.findChildren<QMenu*>()) {
    Expect_Letters_Differ(menu->actions(), menu->title());
  }
}

}  // namespace sylvomex
