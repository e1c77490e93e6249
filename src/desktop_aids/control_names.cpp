// SPDX-License-Identifier: MIT
#include "desktop_aids/control_names.h"

#include <QAbstractButton>
#include <algorithm>
#include <climits>
#include <cstdlib>
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
  if (control == "Check2") return QStringLiteral("Species, key %1").arg(index + 1);
  return std::nullopt;
}

enum class Side { Left, Right };

/// The nearest label on a box's line.
QString Label_Beside(const QWidget& box, Side side) {
  const QLabel* nearest = nullptr;
  int least = INT_MAX;
  for (const QLabel* label : box.parentWidget()->findChildren<QLabel*>()) {
    const QRect place = label->geometry();
    const int gap = side == Side::Right ? place.left() - box.geometry().right()
                                        : box.geometry().left() - place.right();
    const bool on_line = std::abs(place.center().y() - box.geometry().center().y()) < 12;
    if (!on_line || gap < 0 || gap >= least || label->text().isEmpty()) continue;
    nearest = label;
    least = gap;
  }
  return nearest == nullptr ? QString() : nearest->text();
}

/// Empty for what tells itself by its caption, and for what is no control. The strip of the main
/// window captions its boxes on the right, the other windows on the left.
QString Name_Of(const FormWindow& window, const QString& control, const QWidget& widget) {
  const bool is_main = window.Name() == "Form1";
  if (const auto name = Parse_Control_Name(Block_Text(control))) {
    const auto told = is_main ? Name_In_Array(name->name, name->index) : std::nullopt;
    if (told) return *told;
    if (window.Name() == "Form7" && name->name == "Text3") {
      return QStringLiteral("OBS Coding of image %1").arg(name->index);
    }
  }
  if (dynamic_cast<const PictureWidget*>(&widget) != nullptr) {
    return QStringLiteral("Picture of ") + window.windowTitle();
  }
  if (qobject_cast<const QLineEdit*>(&widget) == nullptr) return {};
  return Label_Beside(widget, is_main ? Side::Right : Side::Left);
}

/// Of the control with which the words begin; empty for others.
QString Name_Of_Control(const Windows& shown, const std::string& control) {
  const std::size_t dot = control.find('.');
  const bool is_main = dot == std::string::npos;
  const FormWindow* window = shown.Find(is_main ? "Form1" : control.substr(0, dot));
  if (window == nullptr) return {};
  const QWidget* widget = window->Control_Widget(is_main ? control : control.substr(dot + 1));
  if (widget == nullptr || !widget->accessibleName().isEmpty()) {
    return widget == nullptr ? QString() : widget->accessibleName();
  }
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  return button == nullptr ? QString() : button->text();
}

}  // namespace

std::string Seen_Words(const Windows& shown, const std::string& words) {
  const std::size_t end = std::min(words.find(' '), words.size());
  const QString name = Name_Of_Control(shown, words.substr(0, end));
  if (!name.isEmpty()) return Block_Text(name) + words.substr(end);
  for (const WindowRow& row : All_Windows()) {
    const std::string form(row.name);
    const std::size_t at = words.find(form);
    if (at == std::string::npos) continue;
    return words.substr(0, at) + Block_Text(shown.Find(form)->windowTitle()) +
           words.substr(at + form.size());
  }
  return words;
}

void Name_Controls(Desktop& desktop) {
  for (const WindowRow& row : All_Windows()) {
    FormWindow* window = desktop.Shown().Find(row.name);
    window->Mirror_Unshown();  // the labels have their texts and places
    window->setAccessibleName(window->windowTitle());
    for (QWidget* widget : window->centralWidget()->findChildren<QWidget*>()) {
      const QString control = widget->objectName();
      if (control.isEmpty() || window->Control_Widget(Block_Text(control)) != widget) continue;
      const QString name = Name_Of(*window, control, *widget);
      if (!name.isEmpty()) widget->setAccessibleName(name);
    }
  }
}

}  // namespace sylvomex
