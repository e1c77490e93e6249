// SPDX-License-Identifier: MIT
#include "desktop_aids/strip.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/readable_text.h"
#include "desktop_aids/control_names.h"
#include "platform/guest_files.h"
#include "services/pointer_place.h"
#include "workspace/mode_words.h"

namespace sylvomex {
namespace {

using Kind = OperatorEvent::Kind;

constexpr int kSpace = 6;  // pixels
constexpr int kWidestButton = 340;
constexpr int kShareOfButtons = 2;  // of the strip: the other half is for what is told

/// `object` is what the button acts on, empty for nothing; `brief` is told where the whole does not
/// fit.
void Show_Text(QPushButton& button, const char* what, const char* key, const QString& object,
               const QString& brief) {
  const QString title = QString::fromLatin1(what);
  const QString whole = object.isEmpty() ? title : title + ": " + object;
  const int room = button.width() - 4 * kSpace;
  const QString least = brief.left(title.size() + 9);  // a shorter part would tell nothing
  const bool tells = !object.isEmpty() && button.fontMetrics().horizontalAdvance(least) <= room;
  const QString shown = tells ? First_That_Fits({whole, brief}, button.fontMetrics(), room) : title;
  button.setText(QString(shown).replace('&', "&&"));
  button.setToolTip(whole + QString::fromLatin1(key));
  button.setAccessibleName(whole);
  button.setEnabled(!object.isEmpty());
}

/// Without what stands in parentheses at its end.
void Show_Step(QPushButton& button, const char* what, const char* key, const std::string& step) {
  const QString object = Qt_Text(step);
  Show_Text(button, what, key, object, what + (": " + object.section(" (", 0, 0)));
}

/// By the number at its begin.
void Show_Line(QPushButton& button, const std::string& line) {
  const QString object = Qt_Text(line);
  const QString number = object.section(": ", 1).section(',', 0, 0);
  Show_Text(button, "Take back line", "", object, "Take back line " + number);
}

// The words, and for narrow windows what stands before their colon.
std::vector<std::string> With_Head(const std::string& words) {
  return {words, words.substr(0, words.find(": "))};
}

// The active mode, and before it that nothing can be saved.
std::vector<std::string> State_Words(const Workspace& w) {
  const std::string mode = Mode_Words(w);
  if (!Only_Reads()) return With_Head(mode);
  if (mode.empty()) return {"Only shown, nothing is written", "Only shown"};
  return {"Only shown; " + mode, "Only shown; " + With_Head(mode).back()};
}

FittingLabel* Add_Label(const char* name, QBoxLayout& row, int stretch) {
  auto* label = new FittingLabel;
  label->setObjectName(QString::fromLatin1(name));
  label->setFixedHeight(label->fontMetrics().height() + 1);  // also while it is empty
  label->setMinimumWidth(1);
  label->setTextFormat(Qt::PlainText);
  row.addWidget(label, stretch);
  return label;
}

}  // namespace

void FittingLabel::Show_Words(const std::vector<std::string>& fullest_first) {
  QStringList words;
  for (const std::string& text : fullest_first) words << Qt_Text(text);
  if (words == words_) return;
  words_ = words;
  Fit();
}

void FittingLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit();
}

void FittingLabel::Fit() {
  for (const QString& text : words_) {
    if (fontMetrics().horizontalAdvance(text) > width()) continue;
    setText(text);
    return;
  }
  clear();
}

Strip::Strip(const AidedPanes& panes) : panes_(panes) {
  setObjectName(QStringLiteral("Strip"));
  Lay_Out();
  setSizeGripEnabled(false);
  setFixedHeight(sizeHint().height());
  panes.Owner().Shown().Main().Stand_Below(this);
  qApp->installEventFilter(this);  // for the keys, wherever the focus is, and the pointer
  Refresh();
}

Strip::~Strip() = default;

void Strip::Lay_Out() {
  auto* inside = new QWidget;
  auto* rows = new QVBoxLayout(inside);
  rows->setContentsMargins(kSpace, 0, kSpace, 0);
  rows->setSpacing(1);
  auto* upper = new QHBoxLayout;
  auto* lower = new QHBoxLayout;
  rows->addLayout(upper);
  rows->addLayout(lower);
  upper->setSpacing(kSpace);
  if (panes_.Owner().Kept() != nullptr) {
    undo_ = Add_Button(Kind::Undo, "Undo");
    redo_ = Add_Button(Kind::Redo, "Redo");
    take_back_ = Add_Button(Kind::TakeBackLine, "TakeBackLine");
    for (QPushButton* button : {undo_, redo_, take_back_}) upper->addWidget(button);
  }
  message_ = Add_Label("StripMessage", *upper, 1);
  progress_ = new ProgressBar;
  upper->addWidget(progress_, 3);
  mode_ = Add_Label("StripMode", *lower, 1);
  place_ = Add_Label("StripPlace", *lower, 2);
  place_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  addWidget(inside, 1);
}

QPushButton* Strip::Add_Button(Kind kind, const char* name) {
  auto* button = new QPushButton;
  button->setObjectName(QString::fromLatin1(name));
  button->setFocusPolicy(Qt::NoFocus);  // keys stay with the panes
  button->setFixedHeight(button->fontMetrics().height() + kSpace);
  connect(button, &QPushButton::clicked, this, [this, kind] { Ask_For(kind); });
  return button;
}

/// Wherever the texts end, so that no button moves away under the pointer.
void Strip::Size_Buttons() {
  if (undo_ == nullptr) return;
  const QFontMetrics letters = take_back_->fontMetrics();
  const int of_line =
      letters.horizontalAdvance(QStringLiteral("Take back line 99999")) + 5 * kSpace;
  const int narrowest = letters.horizontalAdvance(QStringLiteral("Undo")) + 4 * kSpace;
  const int wide = std::clamp((width() / kShareOfButtons - of_line) / 2, narrowest,
                              std::max(narrowest, kWidestButton));
  if (undo_->width() == wide && take_back_->width() == of_line) return;
  for (QPushButton* button : {undo_, redo_}) button->setFixedWidth(wide);
  take_back_->setFixedWidth(of_line);
  shown_version_.reset();
  if (!panes_.Owner().Is_Busy()) Refresh_Buttons();
}

void Strip::resizeEvent(QResizeEvent* event) {
  QStatusBar::resizeEvent(event);
  Size_Buttons();
}

void Strip::Ask_For(Kind kind) {
  const History& history = *panes_.Owner().Kept();
  if (history.Is_In_Event()) {
    return Show_Message("A command is running: it has to end before anything is undone or redone");
  }
  const std::uint64_t version = history.Version();
  OperatorEvent event;
  event.kind = kind;
  panes_.Owner().Dispatch(event);
  if (history.Version() == version) return;  // refused, with a message
  const char* const done = kind == Kind::Undo ? "Undone: " : kind == Kind::Redo ? "Redone: " : "";
  Show_Message(done + Seen_Words(panes_.Owner().Shown(), history.Told()));
}

void Strip::Show_Message(const std::string& message) {
  message_->Show_Words(With_Head(message));
  message_->setToolTip(Qt_Text(message));
}

void Strip::Tell(const std::string& words) {
  const std::string written = written_.Take();
  Show_Message(written.empty() ? words : words + "; " + written);
}

void Strip::Refresh() {
  if (panes_.Owner().Is_Busy()) return;
  if (const std::string words = written_.Take(); !words.empty()) Show_Message(words);
  mode_->Show_Words(State_Words(panes_.Block()));
  Refresh_Buttons();
  Show_Place();
}

void Strip::Refresh_Buttons() {
  const History* history = panes_.Owner().Kept();
  if (history == nullptr || undo_ == nullptr || shown_version_ == history->Version()) return;
  shown_version_ = history->Version();
  const auto seen = [this](const std::string& words) {
    return Seen_Words(panes_.Owner().Shown(), words);
  };
  Show_Step(*undo_, "Undo", "  (Alt+Backspace)", seen(history->Undo_Text()));
  Show_Step(*redo_, "Redo", "  (Alt+Shift+Backspace)", seen(history->Redo_Text()));
  Show_Line(*take_back_, history->Line_Text(panes_.Block()));
}

void Strip::Show_Place() {
  const auto place = pointer_ ? Place_Under_Pointer(panes_.Block(), pointer_->pane,
                                                    pointer_->at.x(), pointer_->at.y())
                              : std::nullopt;
  place_->Show_Words(place ? Place_Words(*place, world_) : std::vector<std::string>{""});
}

void Strip::Show_World(const std::optional<WorldFrame>& world) {
  if (world == world_) return;
  world_ = world;
  if (!panes_.Owner().Is_Busy()) Show_Place();
}

void Strip::Show_Place_At(const AidedPanes::Place& place) {
  pointer_ = place;
  if (!panes_.Owner().Is_Busy()) Show_Place();
}

bool Strip::Take_Key(const QObject* receiver, const QKeyEvent& key) {
  const auto* widget = qobject_cast<const QWidget*>(receiver);
  const bool asks = key.key() == Qt::Key_Backspace && key.modifiers().testFlag(Qt::AltModifier) &&
                    !key.modifiers().testFlag(Qt::ControlModifier);
  if (!asks || widget == nullptr || widget->window() != window() || undo_ == nullptr) return false;
  (key.modifiers().testFlag(Qt::ShiftModifier) ? redo_ : undo_)->click();
  return true;
}

bool Strip::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    return Take_Key(watched, *static_cast<QKeyEvent*>(event));
  }
  const bool is_pointer = event->type() == QEvent::MouseMove || event->type() == QEvent::Leave;
  const std::optional<int> pane = is_pointer ? panes_.Index_Of(watched) : std::nullopt;
  if (!pane) return false;
  if (event->type() == QEvent::MouseMove) {
    Show_Place_At({*pane, Pane_Position(static_cast<QMouseEvent*>(event)->position())});
  } else {
    pointer_.reset();
    Show_Place();
  }
  return false;
}

}  // namespace sylvomex
