// SPDX-License-Identifier: MIT
#include "desktop/windows.h"

#include <QApplication>
#include <QStyleFactory>

namespace sylvomex {
namespace {

/// Light whatever the system's theme is: the commands colour their texts for a light window.
QPalette Light_Palette() {
  QPalette colours(QColor(240, 240, 240));
  colours.setColor(QPalette::Base, Qt::white);
  colours.setColor(QPalette::Text, Qt::black);
  colours.setColor(QPalette::WindowText, Qt::black);
  colours.setColor(QPalette::ButtonText, Qt::black);
  colours.setColor(QPalette::Highlight, QColor(0, 95, 170));
  colours.setColor(QPalette::HighlightedText, Qt::white);
  colours.setColor(QPalette::Mid, QColor(150, 150, 150));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    colours.setColor(QPalette::Disabled, role, QColor(120, 120, 120));
  }
  return colours;
}

}  // namespace

void Set_Application_Look() {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(Light_Palette());
  QApplication::setFont(Control_Font());
}

Windows::Windows(OperatorEvents& events, Workspace& w) {
  windows_[0] = std::make_unique<FormWindow>(events, w, "Form1", w.Form1, nullptr);
  QWidget* main = windows_[0].get();
  windows_[1] = std::make_unique<FormWindow>(events, w, "Form2", w.Form2, main);
  windows_[2] = std::make_unique<FormWindow>(events, w, "Form3", w.Form3, main);
  windows_[3] = std::make_unique<FormWindow>(events, w, "Form4", w.Form4, main);
  windows_[4] = std::make_unique<FormWindow>(events, w, "Form7", w.Form7, main);
}

void Windows::Mirror() {
  for (const auto& window : windows_) window->Mirror();
}

FormWindow* Windows::Find(std::string_view form) const {
  for (const auto& window : windows_) {
    if (window->Name() == form) return window.get();
  }
  return nullptr;
}

}  // namespace sylvomex
