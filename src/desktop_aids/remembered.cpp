// SPDX-License-Identifier: MIT
#include "desktop_aids/remembered.h"

#include <QAction>
#include <QDockWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>

namespace sylvomex {
namespace {

const QString kDockShown = QStringLiteral("Measured/shown");
const QString kDockArea = QStringLiteral("Measured/area");

QString Place_Key(const FormWindow& window) {
  return QStringLiteral("Places/") + window.objectName();
}

/// Whether a window there could be taken by its title bar.
bool Is_On_A_Screen(const QPoint& corner) {
  constexpr QPoint kGrip(40, 10);
  return QGuiApplication::screenAt(corner + kGrip) != nullptr;
}

}  // namespace

Remembered::Remembered(Desktop& desktop, const QString& file)
    : settings_(file, QSettings::IniFormat) {
  Follow_Choices(desktop.Shown().Main());
  Follow_Dock(desktop.Shown().Main());
  for (const WindowRow& row : All_Windows()) {
    FormWindow* window = desktop.Shown().Find(row.name);
    if (window != &desktop.Shown().Main()) window->installEventFilter(this);
  }
}

QString Remembered::Usual_File() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/sylvomex/desktop.ini");
}

void Remembered::Follow_Choices(FormWindow& window) {
  for (const char* name :
       {"AidFrames", "AidTops", "AidSavedPoints", "AidLargeMarks", "AidSafeColours"}) {
    const QString key = QStringLiteral("Aids/") + QLatin1String(name);
    auto& action = *window.findChild<QAction*>(QLatin1String(name));
    action.setChecked(settings_.value(key, action.isChecked()).toBool());
    connect(&action, &QAction::toggled, this,
            [this, key](bool on) { settings_.setValue(key, on); });
  }
}

void Remembered::Follow_Dock(FormWindow& window) {
  auto& dock = *window.findChild<QDockWidget*>(QStringLiteral("MeasuredDock"));
  const auto area = static_cast<Qt::DockWidgetArea>(settings_.value(kDockArea).toInt());
  if (area != Qt::NoDockWidgetArea && dock.isAreaAllowed(area)) window.addDockWidget(area, &dock);
  dock.setVisible(settings_.value(kDockShown, false).toBool());
  connect(dock.toggleViewAction(), &QAction::toggled, this,
          [this](bool shown) { settings_.setValue(kDockShown, shown); });
  connect(&dock, &QDockWidget::dockLocationChanged, this,
          [this](Qt::DockWidgetArea now) { settings_.setValue(kDockArea, static_cast<int>(now)); });
}

void Remembered::Put_In_Place(FormWindow& window) {
  const QVariant place = settings_.value(Place_Key(window));
  if (place.isValid() && Is_On_A_Screen(place.toPoint())) window.move(place.toPoint());
}

bool Remembered::eventFilter(QObject* watched, QEvent* event) {
  auto* window = dynamic_cast<FormWindow*>(watched);
  if (window == nullptr) return false;
  if (event->type() == QEvent::Show && placed_.insert(watched).second) Put_In_Place(*window);
  if (event->type() == QEvent::Move && window->isVisible() && placed_.contains(watched)) {
    settings_.setValue(Place_Key(*window), window->pos());
  }
  return false;
}

}  // namespace sylvomex
