// SPDX-License-Identifier: MIT
#include "desktop/windows.h"

#include <QApplication>
#include <QStyleFactory>

namespace sylvomex {
namespace {

/// Light whatever the system's theme: the commands choose text colours for a light window.
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
  for (const WindowRow& window : All_Windows()) {
    QWidget* owner = windows_.empty() ? nullptr : windows_.front().get();
    windows_.push_back(std::make_unique<FormWindow>(events, w, window, owner));
  }
}

// In reverse order: the main window would delete the windows that it owns.
Windows::~Windows() {
  while (!windows_.empty()) windows_.pop_back();
}

void Windows::Mirror() {
  for (const auto& window : windows_) window->Mirror();
  if (mirrored_) mirrored_();
}

FormWindow* Windows::Find(std::string_view form) const {
  for (const auto& window : windows_) {
    if (window->Name() == form) return window.get();
  }
  return nullptr;
}

}  // namespace sylvomex
