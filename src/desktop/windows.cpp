// SPDX-License-Identifier: MIT
#include "desktop/windows.h"

#include <QApplication>
#include <QFontInfo>
#include <QStyleFactory>
#include <algorithm>

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

QPalette Dark_Palette() {
  QPalette colours(QColor(60, 62, 65), QColor(45, 47, 50));
  const QColor letters(232, 232, 232);
  colours.setColor(QPalette::Base, QColor(72, 75, 79));  // ticks stand out
  colours.setColor(QPalette::AlternateBase, QColor(64, 67, 71));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText,
                          QPalette::BrightText, QPalette::ToolTipText}) {
    colours.setColor(role, letters);
  }
  colours.setColor(QPalette::ToolTipBase, QColor(60, 62, 65));
  colours.setColor(QPalette::PlaceholderText, QColor(175, 175, 175));
  colours.setColor(QPalette::Highlight, QColor(40, 120, 190));
  colours.setColor(QPalette::HighlightedText, Qt::white);
  colours.setColor(QPalette::Link, QColor(110, 180, 255));
  colours.setColor(QPalette::LinkVisited, QColor(190, 160, 255));
  colours.setColor(QPalette::Mid, QColor(110, 112, 115));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    colours.setColor(QPalette::Disabled, role, QColor(135, 135, 135));
  }
  return colours;
}

}  // namespace

void Set_Application_Look() {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(Light_Palette());
  QApplication::setFont(Control_Font());
}

bool Set_Look_Of_Machine() {
  constexpr int kUsual = 13, kLargest = 24;  // pixels
  constexpr int kDark = 128;
  const bool is_dark = QGuiApplication::palette().color(QPalette::Window).lightness() < kDark;
  const int letters = QFontInfo(QGuiApplication::font()).pixelSize();
  Set_Application_Look();
  if (letters > kUsual) {
    QFont font = Control_Font();
    font.setPixelSize(std::min(letters, kLargest));
    QApplication::setFont(font);
  }
  return is_dark;
}

void Show_Dark(bool dark) {
  QPalette colours = dark ? Dark_Palette() : Light_Palette();
  // What a palette does not state is kept from the one before.
  for (int role = 0; role < QPalette::NColorRoles; ++role) {
    const auto stated = static_cast<QPalette::ColorRole>(role);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      colours.setBrush(group, stated, colours.brush(group, stated));
    }
  }
  QApplication::setPalette(colours);
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
