// SPDX-License-Identifier: MIT
#include "desktop_aids/command_palette.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <vector>

#include "desktop/dialog_layout.h"
#include "desktop/qt_text.h"
#include "workspace/menu_table.h"

namespace sylvomex {
namespace {

constexpr int kNameRole = Qt::UserRole;
constexpr int kPlaceRole = Qt::UserRole + 1;  // in the order of the menus
constexpr QLatin1String kPathArrow("  >  ");

/// "3D > Intersection > ...": the captions above an item and its own.
QString Path_Text(const QStringList& path) { return path.join(kPathArrow); }

bool Matches(const QString& text, const QString& typed) {
  const QStringList words = typed.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  return std::ranges::all_of(
      words, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

bool Starts_A_Word(const QString& text, const QString& typed) {
  for (qsizetype at = text.indexOf(typed, 0, Qt::CaseInsensitive); at >= 0;
       at = text.indexOf(typed, at + 1, Qt::CaseInsensitive)) {
    if (at == 0 || !text[at - 1].isLetterOrNumber()) return true;
  }
  return false;
}

/// How far down the list an entry stands: 0 when its own caption, the last of the path, starts with
/// what was typed, 1 when a word of it does, else 2.
int Rank(const QString& text, const QString& typed) {
  const qsizetype own = text.lastIndexOf(kPathArrow);
  const QString caption = own < 0 ? text : text.mid(own + kPathArrow.size());
  if (caption.startsWith(typed, Qt::CaseInsensitive)) return 0;
  return Starts_A_Word(caption, typed) ? 1 : 2;
}

}  // namespace

CommandPalette::CommandPalette(Desktop& desktop)
    : QDialog(&desktop.Shown().Main()),
      desktop_(desktop),
      typed_(new QLineEdit(this)),
      none_(new QLabel(QStringLiteral("No command or aid has this in its name."), this)),
      list_(new QListWidget(this)) {
  setObjectName(QStringLiteral("CommandPalette"));
  setWindowTitle(QStringLiteral("Commands"));
  typed_->setAccessibleName(QStringLiteral("Part of a command's name"));
  typed_->setPlaceholderText(QStringLiteral("Part of a command's name"));
  list_->setAccessibleName(QStringLiteral("Commands"));
  list_->setUniformItemSizes(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(typed_);
  layout->addWidget(none_);
  layout->addWidget(list_);
  resize(Fitting_Size(*this, {560, 420}));
  typed_->installEventFilter(this);
  connect(typed_, &QLineEdit::textChanged, this, [this](const QString& text) { Filter(text); });
  connect(typed_, &QLineEdit::returnPressed, this, [this] { Run_Chosen(); });
  connect(list_, &QListWidget::itemActivated, this, [this] { Run_Chosen(); });
  Fill();
}

void CommandPalette::Fill() {
  QStringList path;
  const std::span<const MenuRow> rows = Main_Menu();
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const MenuRow& row = rows[k];
    path.resize(row.level);
    path << Qt_Text(row.caption);
    const bool opens_submenu = k + 1 < rows.size() && rows[k + 1].level > row.level;
    if (opens_submenu || row.role == MenuRole::Separator) continue;
    const std::string key = Key_Text(row);
    QString text = Path_Text(path);
    if (!key.empty()) text += QStringLiteral("    ") + QString::fromStdString(key);
    auto* item = new QListWidgetItem(text, list_);
    item->setData(kNameRole, QString::fromLatin1(row.name));
    item->setData(kPlaceRole, list_->count());
    item->setToolTip(QString::fromLatin1(row.name));
    if (row.greyed) item->setFlags(Qt::NoItemFlags);
  }
}

void CommandPalette::Add(const QString& name, Aid aid) {
  aid.item = new QListWidgetItem(aid.text(), list_);
  aid.item->setToolTip(name);
  aid.item->setData(kPlaceRole, list_->count());
  aids_.push_back(std::move(aid));
}

void CommandPalette::Add_Aid(QAction& action) {
  const auto text = [&action] {
    const QStringList parts = action.text().remove(QLatin1Char('&')).split(QLatin1Char('\t'));
    QString words = Path_Text({QStringLiteral("Aids"), parts.first()});
    if (action.isCheckable()) {
      words += action.isChecked() ? QStringLiteral("  (on)") : QStringLiteral("  (off)");
    }
    return parts.size() > 1 ? words + QStringLiteral("    ") + parts[1] : words;
  };
  Add(action.objectName(),
      {nullptr, text, [&action] { return action.isEnabled(); }, [&action] { action.trigger(); }});
}

void CommandPalette::Add_Aid(QAbstractButton& button) {
  const auto text = [&button] {
    return Path_Text({QStringLiteral("Aids"), button.accessibleName()});
  };
  Add(button.objectName(),
      {nullptr, text, [&button] { return button.isEnabled(); }, [&button] { button.click(); }});
}

void CommandPalette::Bring_Up() {
  for (const Aid& aid : aids_) {
    aid.item->setText(aid.text());
    aid.item->setFlags(aid.can_run() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags);
  }
  typed_->clear();
  Filter({});
  typed_->setFocus();
  show();
  raise();
  activateWindow();
}

/// The best entries first, those of one rank in the order of the menus.
void CommandPalette::Sort(const QString& typed) {
  std::vector<QListWidgetItem*> items;
  while (list_->count() > 0) items.push_back(list_->takeItem(0));
  const auto place = [&](const QListWidgetItem* item) {
    return std::pair(Rank(item->text(), typed.trimmed()), item->data(kPlaceRole).toInt());
  };
  std::ranges::sort(items, {}, place);
  for (QListWidgetItem* item : items) list_->addItem(item);
}

void CommandPalette::Filter(const QString& typed) {
  Sort(typed);
  bool has_match = false;
  list_->setCurrentItem(nullptr);
  for (int k = 0; k < list_->count(); ++k) {
    QListWidgetItem& item = *list_->item(k);
    const bool matches = Matches(item.text() + QLatin1Char(' ') + item.toolTip(), typed);
    item.setHidden(!matches);
    has_match = has_match || matches;
    const bool can_run = item.flags().testFlag(Qt::ItemIsEnabled);
    if (matches && can_run && list_->currentItem() == nullptr) list_->setCurrentItem(&item);
  }
  none_->setVisible(!has_match);
}

void CommandPalette::Run_Chosen() {
  const QListWidgetItem* item = list_->currentItem();
  if (item == nullptr || !item->flags().testFlag(Qt::ItemIsEnabled)) return;
  const auto aid = std::ranges::find(aids_, item, &Aid::item);
  if (aid != aids_.end()) {
    hide();
    return aid->run();
  }
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Menu;
  event.control = Block_Text(item->data(kNameRole).toString());
  hide();
  desktop_.Dispatch(event);
}

/// Up and down move in the list while the text keeps the focus; the palette's own key begins anew.
bool CommandPalette::eventFilter(QObject* watched, QEvent* event) {
  if (watched == typed_ && event->type() == QEvent::KeyPress) {
    const auto& pressed = *static_cast<QKeyEvent*>(event);
    const int key = pressed.key();
    if (key == Qt::Key_P && pressed.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
      typed_->selectAll();
      return true;
    }
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
        key == Qt::Key_PageDown) {
      QApplication::sendEvent(list_, event);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace sylvomex
