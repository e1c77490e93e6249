// SPDX-License-Identifier: MIT
#include "desktop_aids/aids_menu.h"

#include <QMenuBar>
#include <utility>

namespace sylvomex {
namespace {

/// No higher than the line of the menus, so that the client area keeps its size.
class CornerButton : public QToolButton {
 public:
  using QToolButton::QToolButton;

  [[nodiscard]] QSize sizeHint() const override {
    return {QToolButton::sizeHint().width(), fontMetrics().height()};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace

AidsMenu::AidsMenu(Desktop& desktop) {
  QMenuBar& bar = *desktop.Shown().Main().menuBar();
  auto* button = new CornerButton(&bar);
  button->setObjectName(QStringLiteral("AidsButton"));
  button->setText(QStringLiteral("Aids  "));
  button->setAccessibleName(QStringLiteral("Aids"));
  button->setToolTip(QStringLiteral("Frames, tree tops, measured points and more  (Shift+F10)"));
  button->setPopupMode(QToolButton::InstantPopup);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  menu_ = new QMenu(button);
  button->setMenu(menu_);
  bar.setCornerWidget(button);
  button->show();
}

QAction& AidsMenu::Add_Switch(const char* name, const QString& text, bool on,
                              std::function<void(bool)> turn) {
  QAction& action = *menu_->addAction(text);
  action.setObjectName(QString::fromLatin1(name));
  action.setCheckable(true);
  action.setChecked(on);
  QObject::connect(&action, &QAction::toggled, menu_, std::move(turn));
  return action;
}

void AidsMenu::Add_Existing(const char* name, QAction& action) {
  action.setObjectName(QString::fromLatin1(name));
  menu_->addAction(&action);
}

QMenu& AidsMenu::Add_Submenu(const char* name, const QString& text) {
  QMenu& menu = *menu_->addMenu(text);
  menu.setObjectName(QString::fromLatin1(name));
  return menu;
}

QAction& AidsMenu::Add_Item(const char* name, const QString& text, std::function<void()> run) {
  QAction& action = *menu_->addAction(text);
  action.setObjectName(QString::fromLatin1(name));
  QObject::connect(&action, &QAction::triggered, menu_, std::move(run));
  return action;
}

}  // namespace sylvomex
