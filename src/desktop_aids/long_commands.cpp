// SPDX-License-Identifier: MIT
#include "desktop_aids/long_commands.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

#include "desktop/qt_text.h"
#include "history/event_words.h"

namespace sylvomex {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks{50};

bool Is_Input(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

// Only the last of several such events in a row has a lasting effect.
bool Replaces_Last(const QEvent& event) {
  return event.type() == QEvent::MouseMove || event.type() == QEvent::Close;
}

bool Is_Dropping(const QEvent& event) {
  return event.type() == QEvent::DragEnter || event.type() == QEvent::DragMove ||
         event.type() == QEvent::Drop;
}

bool Is_Escape(const QEvent& event) {
  return event.type() == QEvent::KeyPress &&
         static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

LongCommands::LongCommands(Desktop& desktop, ProgressBar& bar)
    : desktop_(desktop),
      bar_(bar),
      curtain_(std::make_unique<Curtain>(*desktop.Shown().Main().centralWidget())) {
  qApp->installEventFilter(this);
}

LongCommands::~LongCommands() = default;

void LongCommands::Begin() {
  has_begun_ = true;
  is_asked_ = false;
  qApp->installEventFilter(this);  // again: before the filters that were installed since
  bar_.Begin(
      Qt_Text(Event_Words(desktop_.Running())), [this] { is_asked_ = true; },
      [this](const QString& lead) { desktop_.Shown().Main().Lead_Title(lead); });
}

void LongCommands::Look(double done) {
  if (!desktop_.Is_Busy() || is_serving_) return;
  const auto now = std::chrono::steady_clock::now();
  if (!has_begun_) {
    if (bar_.Is_Running()) return;  // for something that runs beside the commands
    Begin();
    looked_ = now;
  }
  if (now - looked_ >= kBetweenLooks) {
    bar_.Update(done);
    if (bar_.isVisible()) Serve_Bar();
    looked_ = std::chrono::steady_clock::now();
  }
  if (is_asked_) {
    words_ = "Cancelled: " + Event_Words(desktop_.Running());
    throw Cancelled{};
  }
}

/// The block is in the middle of a change: nothing that reads it is painted, and no event begins.
void LongCommands::Serve_Bar() {
  is_serving_ = true;
  desktop_.Hold_Events(true);
  curtain_->Close();
  QApplication::processEvents();
  curtain_->Open();
  desktop_.Hold_Events(false);
  is_serving_ = false;
}

void LongCommands::Refresh() {
  Release();
  if (has_begun_ && !desktop_.Is_Busy()) {
    has_begun_ = false;
    bar_.End();
  }
}

void LongCommands::Release() {
  if (is_serving_) return;
  for (Waiting& waiting : std::exchange(waiting_, {})) {
    if (waiting.target) QCoreApplication::postEvent(waiting.target, waiting.event.release());
  }
}

std::string LongCommands::Take_Words() {
  return desktop_.Is_Busy() ? std::string() : std::exchange(words_, {});
}

bool LongCommands::Is_For_Bar(const QObject* watched, const QEvent* event) const {
  const auto* widget = qobject_cast<const QWidget*>(watched);
  if (widget == nullptr && event->isSinglePointEvent()) {
    const auto& point = *static_cast<const QSinglePointEvent*>(event);
    widget = QApplication::widgetAt(point.globalPosition().toPoint());
  }
  return widget != nullptr && (widget == &bar_ || bar_.isAncestorOf(widget));
}

void LongCommands::Keep(QObject* watched, QEvent* event) {
  const bool replaces = !waiting_.empty() && waiting_.back().target == watched &&
                        waiting_.back().event->type() == event->type() && Replaces_Last(*event);
  if (replaces) waiting_.pop_back();
  waiting_.push_back({watched, std::unique_ptr<QEvent>(event->clone())});
}

/// A command that waits for an answer makes no progress, and its question has a Cancel of its own.
void LongCommands::Watch_Questions(const QObject* watched, const QEvent& event) {
  if (!has_begun_ || event.type() != QEvent::Show) return;
  const auto* widget = qobject_cast<const QWidget*>(watched);
  if (widget != nullptr && widget->isModal()) bar_.Rest();
}

bool LongCommands::eventFilter(QObject* watched, QEvent* event) {
  Watch_Questions(watched, *event);
  const bool is_shown = has_begun_ && bar_.isVisible();
  if (is_shown && event->type() == QEvent::ShortcutOverride && is_serving_) {
    event->accept();  // as a key, which waits
    return true;
  }
  if (!Is_Input(event->type())) return false;
  if (is_shown && Is_Escape(*event) && QApplication::activeModalWidget() == nullptr) {
    bar_.Ask_For_Cancel();
    return true;
  }
  if (!is_serving_ || Is_For_Bar(watched, event)) return false;
  if (event->type() == QEvent::Close) event->ignore();
  if (!Is_Dropping(*event)) Keep(watched, event);
  return true;
}

}  // namespace sylvomex
