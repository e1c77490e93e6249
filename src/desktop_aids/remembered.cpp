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

const QString kRecent = QStringLiteral("Files/recent");
const QString kFolders = QStringLiteral("Folders");

/// "Measured/shown": of the dock "MeasuredDock".
QString Dock_Key(const QDockWidget& dock, const char* what) {
  return dock.windowTitle() + QLatin1Char('/') + QLatin1String(what);
}

QString Place_Key(const FormWindow& window) {
  return QStringLiteral("Places/") + window.objectName();
}

QString Size_Key(const FormWindow& window) {
  return QStringLiteral("Sizes/") + window.objectName();
}

bool Can_Be_Resized(const FormWindow& window) {
  return window.minimumSize() != window.maximumSize();
}

/// Whether a window there could be taken by its title bar.
bool Is_On_A_Screen(const QPoint& corner) {
  constexpr QPoint kGrip(40, 10);
  return QGuiApplication::screenAt(corner + kGrip) != nullptr;
}

}  // namespace

Remembered::Remembered(Desktop& desktop, Aids& aids, const QString& file)
    : settings_(file, QSettings::IniFormat) {
  Follow_Choices(desktop.Shown().Main());
  for (const char* dock : {"MeasuredDock", "OverlaysDock"}) {
    Follow_Dock(desktop.Shown().Main(), dock);
  }
  Follow_Files(desktop, aids.Recent());
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
  for (const char* name : {"AidFrames", "AidTops", "AidSavedPoints", "AidLargeMarks",
                           "AidThinLabels", "AidSafeColours", "AidDark"}) {
    const QString key = QStringLiteral("Aids/") + QLatin1String(name);
    auto& action = *window.findChild<QAction*>(QLatin1String(name));
    action.setChecked(settings_.value(key, action.isChecked()).toBool());
    connect(&action, &QAction::toggled, this,
            [this, key](bool on) { settings_.setValue(key, on); });
  }
}

void Remembered::Follow_Dock(FormWindow& window, const char* name) {
  auto& dock = *window.findChild<QDockWidget*>(QLatin1String(name));
  const auto area =
      static_cast<Qt::DockWidgetArea>(settings_.value(Dock_Key(dock, "area")).toInt());
  if (area != Qt::NoDockWidgetArea && dock.isAreaAllowed(area)) window.addDockWidget(area, &dock);
  dock.setVisible(settings_.value(Dock_Key(dock, "shown"), false).toBool());
  connect(dock.toggleViewAction(), &QAction::toggled, this,
          [this, &dock](bool shown) { settings_.setValue(Dock_Key(dock, "shown"), shown); });
  connect(&dock, &QDockWidget::dockLocationChanged, this, [this, &dock](Qt::DockWidgetArea now) {
    settings_.setValue(Dock_Key(dock, "area"), static_cast<int>(now));
  });
  const QSize size = settings_.value(Dock_Key(dock, "size")).toSize();
  if (size.isValid()) {
    window.resizeDocks({&dock}, {size.height()}, Qt::Vertical);
    window.resizeDocks({&dock}, {size.width()}, Qt::Horizontal);
  }
  dock.installEventFilter(this);
}

void Remembered::Follow_Files(Desktop& desktop, RecentFiles& recent) {
  DesktopScreen::Folders folders;
  settings_.beginGroup(kFolders);
  for (const QString& key : settings_.childKeys()) {
    const QStringList told = settings_.value(key).toStringList();  // title and folder
    if (told.size() == 2) folders[told[0]] = told[1];
  }
  settings_.endGroup();
  desktop.Dialogs().Begin_In(std::move(folders));
  recent.Show_Lines(settings_.value(kRecent).toStringList());
  recent.When_Changed([this, &desktop, &recent] {
    settings_.setValue(kRecent, recent.Lines());
    int number = 0;
    for (const auto& [title, folder] : desktop.Dialogs().Last_Folders()) {
      settings_.setValue(kFolders + QStringLiteral("/%1").arg(++number),
                         QStringList{title, folder});
    }
  });
}

void Remembered::Put_In_Place(FormWindow& window) {
  const QVariant place = settings_.value(Place_Key(window));
  if (place.isValid() && Is_On_A_Screen(place.toPoint())) window.move(place.toPoint());
  const QSize size = settings_.value(Size_Key(window)).toSize();
  if (size.isValid() && Can_Be_Resized(window)) {
    window.resize(size.boundedTo(window.screen()->availableSize()));
  }
}

bool Remembered::eventFilter(QObject* watched, QEvent* event) {
  if (const auto* dock = qobject_cast<QDockWidget*>(watched)) {
    if (event->type() == QEvent::Resize && dock->isVisible() && !dock->isFloating()) {
      settings_.setValue(Dock_Key(*dock, "size"), dock->size());
    }
    return false;
  }
  auto* window = dynamic_cast<FormWindow*>(watched);
  if (window == nullptr) return false;
  if (event->type() == QEvent::Show && placed_.insert(watched).second) Put_In_Place(*window);
  if (event->type() == QEvent::Move && window->isVisible() && placed_.contains(watched)) {
    settings_.setValue(Place_Key(*window), window->pos());
  }
  const bool has_a_size = window->isVisible() && !window->isMaximized() && Can_Be_Resized(*window);
  if (event->type() == QEvent::Resize && has_a_size && placed_.contains(watched)) {
    settings_.setValue(Size_Key(*window), window->size());
  }
  return false;
}

}  // namespace sylvomex
