// SPDX-License-Identifier: MIT
#include "desktop_site/site_fields.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/dialog_layout.h"
#include "desktop_site/site_words.h"

namespace sylvomex {
namespace {

constexpr int kListHeight = 90;  // pixels
constexpr int kNarrowestEdit = 200;
constexpr int kWidestEdit = 420;

QStringList Words_Of(const char* text) {
  return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// Narrower where the screen is, so that label and buttons stand beside it.
int Edit_Width(const QWidget* parent) {
  const QScreen* screen = parent == nullptr ? QGuiApplication::primaryScreen() : parent->screen();
  return std::clamp(screen->availableSize().width() * 2 / 5, kNarrowestEdit, kWidestEdit);
}

QLineEdit* New_Edit(QWidget* parent, const SiteField& field) {
  auto* edit = new QLineEdit(parent);
  edit->setMinimumWidth(Edit_Width(parent));
  const bool has_words = !std::string_view(field.value).empty();
  edit->setPlaceholderText(QString::fromUtf8(has_words ? field.value : field.help));
  return edit;
}

}  // namespace

SiteFields::SiteFields(const SiteCommand& command, QFormLayout& form, QString start_folder,
                       std::function<void()> changed)
    : command_(command), folder_(std::move(start_folder)), changed_(std::move(changed)) {
  for (const SiteField& field : command.fields) {
    if (field.kind == SiteFieldKind::Site) continue;
    Row row = Make_Row(field);
    row.editor->setObjectName(QString::fromLatin1(field.name));
    row.editor->setAccessibleName(Label_Of(command, field));
    row.editor->setToolTip(QString::fromUtf8(field.help) + QStringLiteral("  (") +
                           QString::fromLatin1(field.name) + QLatin1Char(')'));
    form.addRow(Label_Of(command, field), row.editor);
    rows_.push_back(std::move(row));
  }
}

SiteFields::Row SiteFields::Make_Row(const SiteField& field) {
  switch (field.kind) {
    case SiteFieldKind::File:
    case SiteFieldKind::NewFile:
      return File_Row(field);
    case SiteFieldKind::Files:
      return Files_Row(field);
    case SiteFieldKind::Choice:
      return Choice_Row(field);
    default:
      return Text_Row(field);
  }
}

SiteFields::Row SiteFields::Text_Row(const SiteField& field) {
  QLineEdit* edit = New_Edit(nullptr, field);
  QObject::connect(edit, &QLineEdit::textChanged, edit, [this] { changed_(); });
  return {&field, edit, [edit, &field]() -> QStringList {
            const QString text = edit->text().trimmed();
            if (text.isEmpty()) return {};
            if (field.kind != SiteFieldKind::Numbers) return {text};
            return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
          }};
}

SiteFields::Row SiteFields::Choice_Row(const SiteField& field) {
  auto* box = new QComboBox;
  if (!field.required) box->addItem(QString());
  box->addItems(Words_Of(field.value));
  return {&field, box, [box]() -> QStringList {
            return box->currentText().isEmpty() ? QStringList() : QStringList(box->currentText());
          }};
}

SiteFields::Row SiteFields::File_Row(const SiteField& field) {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  QLineEdit* edit = New_Edit(row, field);
  edit->setAccessibleName(Label_Of(command_, field));
  auto* browse = new QPushButton(QStringLiteral("Browse ..."), row);
  browse->setAutoDefault(false);
  layout->addWidget(edit, 1);
  layout->addWidget(browse);
  QObject::connect(edit, &QLineEdit::textChanged, edit, [this] { changed_(); });
  QObject::connect(browse, &QPushButton::clicked, edit, [this, edit, row, &field] {
    const QStringList chosen = Ask_For_Files(field, *row);
    if (!chosen.isEmpty()) edit->setText(chosen.front());
  });
  return {&field, row, [edit]() -> QStringList {
            return edit->text().isEmpty() ? QStringList() : QStringList(edit->text());
          }};
}

SiteFields::Row SiteFields::Files_Row(const SiteField& field) {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* list = new QListWidget(row);
  list->setMinimumWidth(Edit_Width(row));
  list->setFixedHeight(kListHeight);
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list->setAccessibleName(Label_Of(command_, field));
  auto* buttons = new QVBoxLayout;
  auto* add = new QPushButton(QStringLiteral("Add ..."), row);
  auto* remove = new QPushButton(QStringLiteral("Remove"), row);
  for (QPushButton* button : {add, remove}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  buttons->addStretch(1);
  layout->addWidget(list, 1);
  layout->addLayout(buttons);
  QObject::connect(add, &QPushButton::clicked, list, [this, list, row, &field] {
    for (const QString& file : Ask_For_Files(field, *row)) {
      if (list->findItems(file, Qt::MatchExactly).isEmpty()) list->addItem(file);
    }
    changed_();
  });
  QObject::connect(remove, &QPushButton::clicked, list, [this, list] {
    qDeleteAll(list->selectedItems());
    changed_();
  });
  return {&field, row, [list] {
            QStringList files;
            for (int k = 0; k < list->count(); ++k) files << list->item(k)->text();
            return files;
          }};
}

QStringList SiteFields::Ask_For_Files(const SiteField& field, QWidget& owner) {
  QFileDialog dialog(&owner, Label_Of(command_, field), folder_);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  Lay_Out(dialog);
  dialog.setFileMode(field.kind == SiteFieldKind::Files     ? QFileDialog::ExistingFiles
                     : field.kind == SiteFieldKind::NewFile ? QFileDialog::AnyFile
                                                            : QFileDialog::ExistingFile);
  if (field.kind == SiteFieldKind::NewFile) dialog.setAcceptMode(QFileDialog::AcceptSave);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  folder_ = QFileInfo(dialog.selectedFiles().front()).absolutePath();
  return dialog.selectedFiles();
}

bool SiteFields::Are_Complete() const {
  return std::ranges::all_of(
      rows_, [](const Row& row) { return !row.field->required || !row.values().isEmpty(); });
}

QStringList SiteFields::Arguments(const QString& site) const {
  QStringList words = Words_Of(command_.words) << site;
  for (const Row& row : rows_) {
    const QStringList values = row.values();
    if (row.field->Is_Option() && !values.isEmpty()) words << QString::fromLatin1(row.field->name);
    words << values;
  }
  return words;
}

void SiteFields::Set_Enabled(bool enabled) {
  for (const Row& row : rows_) row.editor->setEnabled(enabled);
}

}  // namespace sylvomex
