// SPDX-License-Identifier: MIT
#include "desktop/dialog_layout.h"

#include <QApplication>
#include <QFontInfo>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QTreeView>
#include <algorithm>

#include "desktop/control_widgets.h"
#include "desktop/wrapped_text.h"

namespace sylvomex {
namespace {

constexpr int kNarrowest = 260;  // pixels
constexpr int kWidest = 640;

/// Width available to a text beside an icon, the margins and the window's frame.
int Room_For_Text(const QWidget& box) {
  constexpr int kAround = 160;
  return std::clamp(box.screen()->availableSize().width() - kAround, kNarrowest, kWidest);
}

/// The window manager's font is unknown; its letters are assumed to be half as wide again as ours.
int Room_For_Title(const QWidget& box) {
  constexpr int kFrameAndButtons = 120;
  const int title = box.fontMetrics().horizontalAdvance(box.windowTitle()) * 3 / 2;
  const int screen = box.screen()->availableSize().width();
  return std::min(title + kFrameAndButtons, std::max(screen - kFrameAndButtons, kNarrowest));
}

QString Wrapped_For(const QWidget& box, const QString& text) {
  return Wrapped_Text(text, box.fontMetrics(), Room_For_Text(box));
}

int Needed_Width(const QWidget& box, const QString& wrapped) {
  constexpr int kSlack = 4;
  const int text = Widest_Line(wrapped, box.fontMetrics()) + kSlack;
  return std::max({kNarrowest, text, Room_For_Title(box)});
}

}  // namespace

double Growth_Of_Letters() {
  const double now = QFontInfo(QApplication::font()).pixelSize();
  return std::max(1.0, now / QFontInfo(Control_Font()).pixelSize());
}

QSize Within_Screen(const QWidget& owner, QSize wanted) {
  constexpr QSize kFrame(8, 34);  // of most window managers
  return wanted.boundedTo(owner.screen()->availableSize() - kFrame);
}

QSize Fitting_Size(const QWidget& owner, QSize wanted) {
  return Within_Screen(owner, (QSizeF(wanted) * Growth_Of_Letters()).toSize());
}

void Lay_Out(QMessageBox& box) {
  box.ensurePolished();
  box.setTextFormat(Qt::PlainText);
  box.setText(Wrapped_For(box, box.text()));
  box.setInformativeText(Wrapped_For(box, box.informativeText()));
  const int width =
      std::max(Needed_Width(box, box.text()), Needed_Width(box, box.informativeText()));
  box.setStyleSheet(QStringLiteral("QLabel#qt_msgbox_label, QLabel#qt_msgbox_informativelabel "
                                   "{ min-width: %1px; }")
                        .arg(width));
}

void Lay_Out(QFileDialog& dialog) {
  enum Column { kName, kSize, kType, kDate };
  constexpr QSize kRoomy(720, 460);
  auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
  if (files == nullptr) return;
  QHeaderView& heads = *files->header();
  heads.setSectionHidden(kType, true);  // it repeats the ending of the name
  heads.setStretchLastSection(false);
  heads.setSectionResizeMode(kName, QHeaderView::Stretch);
  for (const Column column : {kSize, kDate}) {
    heads.setSectionResizeMode(column, QHeaderView::ResizeToContents);
  }
  dialog.resize(Within_Screen(dialog, Fitting_Size(dialog, kRoomy).expandedTo(dialog.sizeHint())));
}

void Lay_Out(QInputDialog& box) {
  box.ensurePolished();
  box.setLabelText(Wrapped_For(box, box.labelText()));
  // The dialog's layout determines its size, so its contents must request the width.
  auto* prompt = box.findChild<QLabel*>();
  if (prompt == nullptr) return;
  prompt->setTextFormat(Qt::PlainText);
  prompt->setMinimumWidth(Needed_Width(box, box.labelText()));
}

}  // namespace sylvomex
