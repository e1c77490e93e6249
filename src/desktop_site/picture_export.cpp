// SPDX-License-Identifier: MIT
#include "desktop_site/picture_export.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <exception>
#include <filesystem>
#include <functional>

#include "desktop/dialog_layout.h"
#include "desktop_aids/menu_keys.h"
#include "platform/number_text.h"
#include "session/picture_vectors.h"
#include "session/vector_page.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

using Saving = std::function<void(const std::filesystem::path&)>;

/// The chosen file, with an ending that asks for vectors; empty when the dialog is dismissed.
QString Ask_For_File(QWidget& owner, const QString& title) {
  QFileDialog dialog(&owner, title);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilters({QStringLiteral("SVG (*.svg)"), QStringLiteral("PDF (*.pdf)")});
  dialog.setDefaultSuffix(QStringLiteral("svg"));
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
    dialog.setDefaultSuffix(filter.left(3).toLower());
  });
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  const QString file = dialog.selectedFiles().front();
  return Is_Vector_File(file.toStdString()) ? file
                                            : file + QLatin1Char('.') + dialog.defaultSuffix();
}

void Save_As_Vectors(QWidget& owner, const QString& title, const Saving& save) {
  const QString file = Ask_For_File(owner, title);
  if (file.isEmpty()) return;
  try {
    save(file.toStdString());
  } catch (const std::exception& failure) {
    QMessageBox box(QMessageBox::Warning, title, QString::fromStdString(failure.what()),
                    QMessageBox::Ok, &owner);
    Lay_Out(box);
    box.exec();
  }
}

/// The pane of the image that the operator names; -1 when the question is dismissed.
int Ask_For_Pane(const Workspace& w, QWidget& owner, const QString& title) {
  if (w.ImageCount == 1) return 0;
  QStringList ids;
  for (int k = 0; k < w.ImageCount; ++k) {
    ids << QString::fromStdString(Plain_Text(w.ImageBlock(k).ImageId));
  }
  QInputDialog dialog(&owner);
  dialog.setWindowTitle(title);
  dialog.setLabelText(QStringLiteral("Image"));
  dialog.setComboBoxItems(ids);
  Lay_Out(dialog);
  if (dialog.exec() != QDialog::Accepted) return -1;
  return static_cast<int>(ids.indexOf(dialog.textValue()));
}

}  // namespace

void Add_Picture_Export(Desktop& desktop, QMenu& menu, QString& taken) {
  QWidget& owner = desktop.Shown().Main();
  const QString window = QStringLiteral("Window as SVG or PDF");
  const QString pane = QStringLiteral("Pane as SVG or PDF");
  menu.addSeparator();
  QAction* const whole = menu.addAction(With_Mnemonic(window + QStringLiteral(" ..."), taken));
  QAction* const single = menu.addAction(With_Mnemonic(pane + QStringLiteral(" ..."), taken));
  whole->setObjectName(QStringLiteral("Site window"));
  single->setObjectName(QStringLiteral("Site pane"));
  QObject::connect(&menu, &QMenu::aboutToShow, whole, [&desktop, whole, single] {
    whole->setEnabled(desktop.Block().ImageCount > 0);
    single->setEnabled(desktop.Block().ImageCount > 0);
  });
  QObject::connect(whole, &QAction::triggered, whole, [&desktop, &owner, window] {
    Save_As_Vectors(owner, window, [&](const std::filesystem::path& file) {
      Save_Window_Vectors(desktop.Block(), "Form1", file);
    });
  });
  QObject::connect(single, &QAction::triggered, single, [&desktop, &owner, pane] {
    const int k = Ask_For_Pane(desktop.Block(), owner, pane);
    if (k < 0) return;
    Save_As_Vectors(owner, pane, [&](const std::filesystem::path& file) {
      Save_Picture_Vectors(desktop.Block(), desktop.Block().Form1.Picture1(k), file);
    });
  });
}

}  // namespace sylvomex
