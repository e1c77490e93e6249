// SPDX-License-Identifier: MIT
#include "demo/guide/guide_windows.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>

#include "desktop/desktop.h"
#include "desktop_aids/aids.h"
#include "programs/workstation/site_aids.h"
#include "session/event_steps.h"

namespace sylvomex::demo {
namespace {

const QSize kClient(1640, 820);  // the docks find room beside the panes

class GuideWindow {
 public:
  GuideWindow(const std::filesystem::path& site, const char* session)
      : desktop_({DriveMap(site), kClient, {}, [] {}, false}) {
    desktop_.Start();
    aids_.emplace(desktop_);
    Add_Site_Menu(desktop_, *aids_);
    desktop_.Begin_With(site / "sessions" / session);
    Settle();
  }

  void Choose(const char* step) {
    desktop_.Dispatch(Event_Of_Step(Split_Line(step)));
    Settle();
  }

  /// An item of the menu Aids.
  void Turn(const char* name) {
    Main().findChild<QAction*>(QLatin1String(name))->trigger();
    Settle();
  }

  void Open(QDockWidget& dock) {
    dock.toggleViewAction()->trigger();
    Settle();
  }

  Aids& Beside() { return *aids_; }
  FormWindow& Main() { return desktop_.Shown().Main(); }

  QPointF Middle_Of(int pane) { return QRectF(Pane(pane).rect()).center(); }

  void Point_At(int pane, const QPointF& at) {
    QWidget& widget = Pane(pane);
    QCursor::setPos(widget.mapToGlobal(at.toPoint()));
    QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
    Settle();
  }

  void Tap(int pane, Qt::Key key) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier);
      QApplication::sendEvent(&Pane(pane), &event);
    }
    Settle();
  }

  QImage Picture() { return Main().grab().toImage(); }

  QImage Picture_With_Menu() {
    auto& button = *Main().findChild<QToolButton*>(QStringLiteral("AidsButton"));
    QMenu& menu = *button.menu();
    const QSize size = menu.sizeHint();
    const QPoint corner = button.mapTo(&Main(), QPoint(button.width(), button.height()));
    menu.popup(Main().mapToGlobal(corner - QPoint(size.width(), 0)));
    Settle();
    const QImage opened = menu.grab().toImage();
    menu.close();
    QImage picture = Picture();
    QPainter(&picture).drawImage(corner - QPoint(size.width(), 0), opened);
    return picture;
  }

 private:
  QWidget& Pane(int pane) {
    return *Main().Control_Widget("Picture1(" + std::to_string(pane) + ")");
  }

  // Docks find their sizes in the second round.
  void Settle() {
    for (int round = 0; round < 3; ++round) {
      desktop_.Block().screen->Service_Events();
      QApplication::processEvents();
    }
  }

  Desktop desktop_;
  std::optional<Aids> aids_;
};

}  // namespace

QImage Aids_Picture(const std::filesystem::path& site) {
  GuideWindow window(site, "match.txt");
  window.Turn("AidTops");
  window.Open(window.Beside().Measured());
  window.Choose("menu Clear_ima");
  window.Choose("menu Zoom2_1");
  window.Point_At(4, window.Middle_Of(4));
  window.Tap(4, Magnifier::kKey);
  window.Point_At(2, window.Middle_Of(2));
  return window.Picture();
}

QImage Overlays_Picture(const std::filesystem::path& site) {
  GuideWindow window(site, "open.txt");
  window.Turn("AidThinLabels");
  window.Open(window.Beside().Overlays());
  window.Choose("menu Print_ALS_near_solution");
  window.Choose("menu Get_elevation");
  window.Point_At(1, window.Middle_Of(1));
  return window.Picture_With_Menu();
}

}  // namespace sylvomex::demo
