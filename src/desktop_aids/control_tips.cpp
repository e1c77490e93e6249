// SPDX-License-Identifier: MIT
#include "desktop_aids/control_tips.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "desktop/qt_text.h"

namespace sylvomex {
namespace {

struct Tip {
  const char* form;
  const char* control;  // without an index: for all of an array
  const char* text;
};

constexpr Tip kTips[] = {
    {"Form1", "Label4", "The solution, metres. Keys E, W, N, S, U, D move it by one step (Ctrl+O)"},
    {"Form1", "Check4", "Ends a running search of heights in a polygon"},
    {"Form1", "MeasureDistancesCheckBox",
     "Two clicks measure a crown width on the plane of the solution; Ctrl+S saves them"},
    {"Form1", "Text4", "r: radius of the plot, metres"},
    {"Form1", "Text5", "Tw: half-width of the crown ellipse, metres"},
    {"Form1", "Text6", "Zd: half-height of the crown ellipse, metres"},
    {"Form1", "Text7", "EZA: height of the ellipse's centre above the top, metres"},
    {"Form1", "Text8", "fHDOM: upper limit of the layer, times the canopy height"},
    {"Form1", "Text9", "Hlow: lower limit of the layer, a fraction of the upper one"},
    {"Form1", "Text2", "XYt: points nearer than this are one tree, metres"},
    {"Form1", "Text3", "Rl: least correlation"},
    {"Form1", "Text10", "Mesh: spacing of the points, metres"},
    {"Form1", "Check2(0)", "Species 1  (key 1)"},
    {"Form1", "Check2(1)", "Species 2  (key 2)"},
    {"Form1", "Check2(2)", "Species 3  (key 3)"},
    {"Form1", "Check2(3)", "Species 20  (key 4)"},
    {"Form1", "Check5", "Every click matches a tree top with templates of several sizes"},
    {"Form1", "Text1", "Film coordinate of the observation, metres. Ctrl+A empties all of them"},
    {"Form1", "Text12", "Row from the top and column of the last click, or the crown width"},
    {"Form1", "Check1", "The image takes part in intersections (Ctrl+I)"},
    {"Form2", "Apply_Options_Changes", "Enter; Esc leaves the options as they were"},
    {"Form3", "Accept_And_Save_Button", "Enter"},
    {"Form3", "Cancel_Button", "Esc"},
    {"Form4", "OK_Button", "Enter or Esc"},
};

}  // namespace

ControlTips::ControlTips(Desktop& desktop) {
  setParent(&desktop.Shown().Main());
  qApp->installEventFilter(this);
}

QString ControlTips::Tip_Of(const QString& form, const QString& control) {
  for (const Tip& tip : kTips) {
    const QLatin1String name(tip.control);
    const bool is_its = control == name || control.section(QLatin1Char('('), 0, 0) == name;
    if (form == QLatin1String(tip.form) && is_its) return QLatin1String(tip.text);
  }
  return {};
}

bool ControlTips::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ToolTip) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  auto* window = widget == nullptr ? nullptr : dynamic_cast<FormWindow*>(widget->window());
  if (window == nullptr) return false;
  const QString control = widget->objectName();
  if (window->Control_Widget(Block_Text(control)) != widget) return false;
  const QString own = Tip_Of(window->objectName(), control);
  if (own.isEmpty()) return false;
  const QString cut = widget->toolTip();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                     cut.isEmpty() ? own : cut + QLatin1Char('\n') + own, widget);
  return true;
}

}  // namespace sylvomex
