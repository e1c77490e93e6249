// SPDX-License-Identifier: MIT
#include "desktop/form_menus.h"

#include <QApplication>
#include <QMenu>
#include <algorithm>
#include <utility>

#include "desktop/qt_text.h"

namespace sylvomex {

FormMenus::FormMenus(OperatorEvents& events, std::string form, std::span<const MenuRow> rows,
                     QMenuBar& bar)
    : events_(events), form_(std::move(form)), rows_(rows) {
  std::vector<QWidget*> parents{&bar};  // parents of the rows of level 0, 1, ...
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const MenuRow& row = rows[k];
    parents.resize(static_cast<std::size_t>(row.level) + 1);
    const bool opens_submenu = k + 1 < rows.size() && rows[k + 1].level > row.level;
    if (!opens_submenu) {
      Add_Item(row, *parents.back());
      continue;
    }
    auto* menu = new QMenu(Caption_Text(row.caption), parents.back());
    menu->setObjectName(QString::fromLatin1(row.name));
    menu->setFont(QApplication::font());
    menu->menuAction()->setEnabled(!row.greyed);
    parents.back()->addAction(menu->menuAction());
    parents.push_back(menu);
  }
}

void FormMenus::Add_Item(const MenuRow& row, QWidget& parent) {
  if (row.role == MenuRole::Separator) {
    auto* line = new QAction(&parent);
    line->setSeparator(true);
    line->setObjectName(QString::fromLatin1(row.name));
    parent.addAction(line);
    return;
  }
  QString text = Caption_Text(row.caption);
  if (const std::string key = Key_Text(row); !key.empty()) {
    text += QLatin1Char('\t') + QString::fromStdString(key);
  }
  auto* action = new QAction(text, &parent);
  action->setObjectName(QString::fromLatin1(row.name));
  action->setEnabled(!row.greyed);
  action->setMenuRole(QAction::NoRole);
  if (row.check != nullptr) {
    action->setCheckable(true);
    checked_.push_back({&row, action});
  }
  QObject::connect(action, &QAction::triggered, action, [this, name = std::string(row.name)] {
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Menu;
    event.form = form_;
    event.control = name;
    events_.Dispatch(event);
  });
  parent.addAction(action);
}

void FormMenus::Mirror(Workspace& w) {
  for (const CheckedItem& item : checked_) {
    const bool checked = *item.row->check(w);
    if (item.action->isChecked() != checked) item.action->setChecked(checked);
  }
}

bool FormMenus::Has_Key(int key_code, int shift) const {
  return std::any_of(rows_.begin(), rows_.end(), [&](const MenuRow& row) {
    return row.key_code != 0 && row.key_code == key_code && row.key_shift == shift;
  });
}

}  // namespace sylvomex
