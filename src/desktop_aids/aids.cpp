// SPDX-License-Identifier: MIT
#include "desktop_aids/aids.h"

#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <algorithm>

#include "desktop/dialog_layout.h"
#include "desktop_aids/control_names.h"
#include "desktop_aids/control_tips.h"
#include "desktop_aids/dialog_keys.h"
#include "desktop_aids/menu_keys.h"

namespace sylvomex {
namespace {

constexpr int kDockHeight = 190;  // pixels

/// Whether the window was made as wide as its screen allows. Whether it is maximized the window
/// manager tells only later.
bool Fills_Its_Screen(const FormWindow& window) {
  constexpr int kFrames = 40;
  const int room = window.screen()->availableGeometry().width();
  return window.width() <= room && window.width() > room - kFrames;
}

void Open_Aids_Menu(const FormWindow& window) {
  const auto& button = *window.findChild<QToolButton*>(QStringLiteral("AidsButton"));
  button.menu()->popup(button.mapToGlobal(QPoint(0, button.height())));
}

}  // namespace

Aids::Aids(Desktop& desktop, bool is_dark)
    : panes_(desktop),
      hands_(panes_),
      heads_(panes_),
      magnifier_(new Magnifier(panes_)),
      strip_(new Strip(panes_)),
      measured_(new MeasuredDock(panes_)),
      overlays_drawn_(new OverlayDock(panes_)),
      guide_(new Guide(desktop)),
      long_commands_(desktop, strip_->Progress()),
      palette_(desktop),
      menu_(desktop),
      recent_(desktop, menu_.Add_Submenu("RecentFiles", QStringLiteral("&Recent files"))),
      drops_(desktop),
      keys_(panes_,
            {{Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier, [this] { palette_.Bring_Up(); }},
             {Qt::Key_F10, Qt::NoModifier,
              [&desktop] { Open_First_Menu(*desktop.Shown().Main().menuBar()); }},
             {Qt::Key_F10, Qt::ShiftModifier,
              [&desktop] { Open_Aids_Menu(desktop.Shown().Main()); }}}) {
  for (const WindowRow& row : All_Windows()) {
    FormWindow& window = *desktop.Shown().Find(row.name);
    window.Keep_Numbers_Whole();
    // A main window of a size that was asked for keeps it.
    const bool is_main = &window == &desktop.Shown().Main();
    if (!is_main || Fills_Its_Screen(window)) window.Scroll_On_Small_Screens();
  }
  (new DialogKeys(desktop))->setParent(&desktop.Shown().Main());
  new ControlTips(desktop);  // owned by the window
  for (int pane = 0; pane < kAidedPanes; ++pane) {
    overlays_.at(static_cast<std::size_t>(pane)) =
        new PaneOverlay(panes_, pane, choices_, measured_->Model());
  }
  desktop.Shown().Main().addDockWidget(Qt::BottomDockWidgetArea, measured_);
  desktop.Shown().Main().addDockWidget(Qt::BottomDockWidgetArea, overlays_drawn_);
  const int third = desktop.Shown().Main().height() / 3;
  const int height =
      std::max(kDockHeight, std::min(third, static_cast<int>(kDockHeight * Growth_Of_Letters())));
  desktop.Shown().Main().resizeDocks({measured_, overlays_drawn_}, {height, height}, Qt::Vertical);
  measured_->hide();
  overlays_drawn_->hide();
  dock_places_.emplace(panes_, std::vector<QDockWidget*>{measured_, overlays_drawn_});
  Give_Mnemonics(*desktop.Shown().Main().menuBar());
  recent_.Show_Lines({});
  Fill_Menu(is_dark);
  Fill_Palette();
  Name_Controls(desktop);
  desktop.Dialogs().Be_Calm([this](const std::string& words) { strip_->Tell(words); });
  desktop.Shown().When_Mirrored([this] { Refresh(); });
  magnifier_->When_Pointed(
      [this](const AidedPanes::Place& place) { strip_->Show_Place_At(place); });
  // Else the first tick has the focus, and the space bar ticks it instead of dragging a pane.
  desktop.Shown().Main().findChild<QWidget*>(QStringLiteral("client"))->setFocus();
  Refresh();
}

Aids::~Aids() {
  panes_.Owner().Shown().When_Mirrored({});
  panes_.Owner().Dialogs().Be_Calm({});
  panes_.Owner().Shown().Main().Place_By({});
  long_commands_.Refresh();
  dock_places_.reset();
  delete strip_;
  delete magnifier_;
  delete measured_;
  delete overlays_drawn_;
  delete guide_;
  for (PaneOverlay* overlay : overlays_) delete overlay;
}

void Aids::Add_Choice(const char* name, const QString& text, bool OverlayChoices::*choice) {
  menu_.Add_Switch(name, text, choices_.*choice, [this, choice](bool on) {
    choices_.*choice = on;
    Refresh();
  });
}

void Aids::Fill_Menu(bool is_dark) {
  Add_Choice("AidFrames", QStringLiteral("&Frames of the panes"), &OverlayChoices::frames);
  Add_Choice("AidTops", QStringLiteral("Tree &tops of the last search"), &OverlayChoices::tops);
  Add_Choice("AidSavedPoints", QStringLiteral("&Saved points"), &OverlayChoices::saved_points);
  Add_Choice("AidLargeMarks", QStringLiteral("&Larger small marks"), &OverlayChoices::large_marks);
  Add_Choice("AidThinLabels", QStringLiteral("Th&inned labels"), &OverlayChoices::thin_labels);
  Add_Choice("AidSafeColours", QStringLiteral("Colours for colour-&blind eyes"),
             &OverlayChoices::safe_colours);
  menu_.Add_Switch("AidDark", QStringLiteral("&Dark windows"), is_dark, Show_Dark);
  measured_->toggleViewAction()->setText(QStringLiteral("&Measured"));
  menu_.Add_Existing("MeasuredDock", *measured_->toggleViewAction());
  overlays_drawn_->toggleViewAction()->setText(QStringLiteral("&Overlays"));
  menu_.Add_Existing("OverlaysDock", *overlays_drawn_->toggleViewAction());
  menu_.Add_Item("AidPalette", QStringLiteral("All &commands by name\tCtrl+Shift+P"),
                 [this] { palette_.Bring_Up(); });
  menu_.Add_Item("AidGuide", QStringLiteral("&Guide\tShift+F1"), [this] {
    guide_->Open({"user-guide.md", ""});
  });
}

/// The aids among the commands.
void Aids::Fill_Palette() {
  for (QAction* action : menu_.Actions()) {
    const bool is_palette = action->objectName() == QStringLiteral("AidPalette");
    if (!is_palette && action->menu() == nullptr) palette_.Add_Aid(*action);
  }
  for (QPushButton* button : strip_->findChildren<QPushButton*>()) {
    if (button->parentWidget() != &strip_->Progress()) palette_.Add_Aid(*button);
  }
}

void Aids::Refresh() {
  long_commands_.Refresh();
  if (const std::string words = long_commands_.Take_Words(); !words.empty()) strip_->Tell(words);
  if (choices_.saved_points) measured_->Model().Refresh();
  for (PaneOverlay* overlay : overlays_) overlay->Refresh();
  magnifier_->Refresh();
  strip_->Refresh();
  measured_->Refresh();
}

}  // namespace sylvomex
