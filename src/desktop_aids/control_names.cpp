// SPDX-License-Identifier: MIT
#include "desktop_aids/control_names.h"

#include <QPushButton>
#include <QRadioButton>
#include <optional>

#include "desktop/qt_text.h"
#include "workspace/control_lookup.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

/// The names of the main window's arrays, which no label tells. Images count from 0, as in
/// questions.
std::optional<QString> Name_In_Array(const std::string& control, int index) {
  const auto of_image = [](const char* what, int image) {
    return QStringLiteral("%1 of image %2").arg(QLatin1String(what)).arg(image);
  };
  if (control == "Picture1") return of_image("Pane", index);
  if (control == "Text1") return of_image(index % 2 == 0 ? "Film x" : "Film y", index / 2);
  if (control == "Text12") return of_image("Row and column, or crown width,", index);
  if (control == "Check1") return of_image("Use", index);
  return std::nullopt;
}

/// The nearest label right of a box on its line, within its own width; the strip captions its boxes
/// so.
QString Label_Beside(const QWidget& box) {
  const QLabel* nearest = nullptr;
  for (const QLabel* label : box.parentWidget()->findChildren<QLabel*>()) {
    const int gap = label->x() - box.geometry().right();
    const bool on_line =
        std::abs(label->geometry().center().y() - box.geometry().center().y()) < 12;
    if (!on_line || gap < 0 || label->text().isEmpty()) continue;
    if (nearest == nullptr || label->x() < nearest->x()) nearest = label;
  }
  return nearest == nullptr ? QString() : nearest->text();
}

QString Name_Of(const FormWindow& window, const QString& control, const QWidget& widget) {
  const auto name = Parse_Control_Name(Block_Text(control));
  if (window.Name() == "Form1" && name) {
    if (const auto told = Name_In_Array(name->name, name->index)) return *told;
  }
  const QString beside = Label_Beside(widget);
  return beside.isEmpty() ? control : beside;
}

}  // namespace

void Name_Controls(Desktop& desktop) {
  for (const WindowRow& row : All_Windows()) {
    FormWindow* window = desktop.Shown().Find(row.name);
    window->setAccessibleName(window->windowTitle());
    for (QWidget* widget : window->centralWidget()->findChildren<QWidget*>()) {
      const QString control = widget->objectName();
      if (control.isEmpty() || window->Control_Widget(Block_Text(control)) != widget) continue;
      const bool tells_itself = qobject_cast<QLabel*>(widget) != nullptr ||
                                qobject_cast<QPushButton*>(widget) != nullptr ||
                                qobject_cast<QRadioButton*>(widget) != nullptr;
      if (!tells_itself) widget->setAccessibleName(Name_Of(*window, control, *widget));
    }
  }
}

}  // namespace sylvomex
