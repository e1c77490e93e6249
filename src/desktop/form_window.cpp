// SPDX-License-Identifier: MIT
#include "desktop/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <concepts>
#include <utility>

#include "desktop/key_codes.h"
#include "desktop/qt_text.h"
#include "state/window_limits.h"
#include "workspace/control_lookup.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {
namespace {

constexpr QLatin1StringView kClientName("client");

/// Reports moves over the window's background and over check boxes; a pane reports its own.
bool Tells_Moves(const QObject* watched) {
  return watched->objectName() == kClientName || qobject_cast<const QCheckBox*>(watched) != nullptr;
}

bool Is_Divider(const QWidget& widget) { return widget.metaObject() == &QFrame::staticMetaObject; }

bool Carries_Text(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) != nullptr ||
         qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QCheckBox*>(&widget) != nullptr;
}

QSize Whole_Pixels(double width, double height) {
  return {static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height))};
}

QSize Client_Size(const Form& form) { return Whole_Pixels(form.ClientWidth, form.ClientHeight); }

}  // namespace

FormWindow::FormWindow(OperatorEvents& events, Workspace& w, const WindowRow& window,
                       QWidget* owner)
    : QMainWindow(owner, owner == nullptr ? Qt::Window : Qt::Dialog),
      events_(events),
      w_(w),
      window_(window),
      name_(window.name),
      form_(window.record(w)),
      client_(new QWidget(this)),
      menus_(events, name_, window.menu, *menuBar()) {
  setObjectName(QString::fromStdString(name_));
  // A dialog has no such button of its own.
  if (Has_Handler(kWindowItself, Happening::Resize) && owner != nullptr) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
  }
  client_->setFont(Control_Font());
  menuBar()->setFont(QApplication::font());
  menuBar()->setNativeMenuBar(false);
  if (menuBar()->actions().isEmpty()) menuBar()->hide();
  setContextMenuPolicy(Qt::NoContextMenu);
  setCentralWidget(client_);
  client_->setObjectName(kClientName);
  client_->setMaximumSize(kLargestWindowSide, kLargestWindowSide);
  client_->setFocusPolicy(Qt::ClickFocus);
  client_->setMouseTracking(true);
  client_->setFocus();
  installEventFilter(this);
  client_->installEventFilter(this);
  Visit_Controls(form_, window_.design->controls,
                 [this](const ControlRow& row, int index, AnyControl any) {
                   Add_Control(Control_Name_Text(row.name, index), any);
                 });
}

void FormWindow::Add_Control(const std::string& name, AnyControl any) {
  std::visit(
      [&](auto control) {
        if constexpr (!std::same_as<decltype(control), std::monostate>) {
          Add_Control(name, *control);
        }
      },
      any);
}

bool FormWindow::Has_Handler(const std::string& control, Happening happening) const {
  return Find_Handler(window_, control, happening) != nullptr;
}

void FormWindow::Add(const std::string& name, const Control& record, QWidget* widget,
                     std::function<void()> show_content) {
  widget->setObjectName(QString::fromStdString(name));
  widget->installEventFilter(this);
  controls_.push_back({name, &record, widget, std::move(show_content), QRect()});
}

void FormWindow::Add_Control(const std::string& name, const Label& record) {
  auto* label = new TextLabel(client_);
  Add(name, record, label, [label, &record] { Show_Control(*label, record); });
}

void FormWindow::Add_Control(const std::string& name, const TextBox& record) {
  auto* box = new TextBoxWidget(client_);
  connect(box, &QLineEdit::textEdited, this, [this, name](const QString& text) {
    Send(OperatorEvent::Kind::Set, name, Block_Text(text));
  });
  connect(box, &QLineEdit::returnPressed, this,
          [this, name] { Send(OperatorEvent::Kind::Press, name); });
  Add(name, record, box, [box, &record] { Show_Control(*box, record); });
}

void FormWindow::Add_Control(const std::string& name, const CheckBox& record) {
  auto* box = new QCheckBox(client_);
  box->setMouseTracking(true);
  box->setFont(Control_Font());
  connect(box, &QCheckBox::clicked, this, [this, name](bool checked) {
    Send(OperatorEvent::Kind::Set, name, checked ? "1" : "0");
  });
  Add(name, record, box, [this, box, &record] {
    if (Show_Control(*box, record)) places_changed_ = true;
  });
}

void FormWindow::Add_Control(const std::string& name, const OptionButton& record) {
  auto* option = new QRadioButton(client_);
  option->setAutoExclusive(false);  // the records say which one is chosen
  option->setFont(Control_Font());
  connect(option, &QRadioButton::clicked, this, [this, name, option, &record] {
    Send(OperatorEvent::Kind::Set, name, "1");
    Show_Control(*option, record);
  });
  Add(name, record, option, [option, &record] { Show_Control(*option, record); });
}

void FormWindow::Add_Control(const std::string& name, const Button& record) {
  auto* button = new QPushButton(client_);
  button->setFont(Control_Font());
  connect(button, &QPushButton::clicked, this,
          [this, name] { Send(OperatorEvent::Kind::Press, name); });
  Add(name, record, button, [button, &record] { Show_Control(*button, record); });
}

void FormWindow::Add_Control(const std::string& name, const Divider& record) {
  auto* line = new QFrame(client_);
  line->setFrameShadow(QFrame::Plain);
  line->setForegroundRole(QPalette::Mid);
  Add(name, record, line, [line, &record] { Show_Control(*line, record); });
}

void FormWindow::Add_Control(const std::string& name, const Picture& record) {
  auto* pane = new PictureWidget(events_, name_, name, record, client_);
  const std::string control = Parse_Control_Name(name)->name;
  pane->Tell_Double_Clicks(Has_Handler(control, Happening::DblClick));
  pane->Tell_Middle_Button(Takes_Button(window_, control, kMiddleButton));
  Add(name, record, pane, [pane] { pane->Mirror(); });
}

QWidget* FormWindow::Control_Widget(const std::string& name) const {
  for (const Mirrored& control : controls_) {
    if (control.name == name) return control.widget;
  }
  return nullptr;
}

std::string FormWindow::Name_Of(const QWidget* widget) const {
  for (const Mirrored& control : controls_) {
    if (control.widget == widget) return control.name;
  }
  return {};
}

void FormWindow::Mirror() {
  if (!form_.Visible && isHidden()) return;
  Mirror_Unshown();
  if (isHidden() == form_.Visible) {
    if (form_.Visible && !placed_) Place_Over_Owner();
    setVisible(form_.Visible);
    if (form_.Visible && parentWidget() != nullptr) {
      layout()->activate();
      Send_Size();  // the screen may have no room for the record's
    }
  }
  Mirror_Focus();
}

void FormWindow::Place_Over_Owner() {
  placed_ = true;
  if (parentWidget() == nullptr) return;
  const QRect owner = parentWidget()->frameGeometry();
  QRect place(QPoint(), size());
  place.moveCenter(owner.center());
  place.moveTop(std::max(place.top(), owner.top()));
  move(place.topLeft());
}

void FormWindow::Lead_Title(const QString& lead) {
  title_lead_ = lead;
  Mirror_Title();
}

void FormWindow::Mirror_Title() {
  const QString title = title_lead_ + Qt_Text(form_.Title);
  if (windowTitle() != title) setWindowTitle(title);
}

void FormWindow::Mirror_Unshown() {
  Mirror_Title();
  if (client_->isEnabled() != form_.Enabled) {
    client_->setEnabled(form_.Enabled);
    menuBar()->setEnabled(form_.Enabled);
  }
  Mirror_Size();
  Mirror_Controls();
  menus_.Mirror(w_);
  Mirror_Pointer();
}

int FormWindow::Menu_Height() const {
  return menuBar()->isHidden() ? 0 : menuBar()->sizeHint().height();
}

QSize FormWindow::Whole_Size(QSize client) const {
  return client + QSize(0, Menu_Height() + (strip_ != nullptr ? strip_->height() : 0));
}

void FormWindow::Keep_Numbers_Whole() {
  for (const Mirrored& control : controls_) {
    if (auto* label = dynamic_cast<TextLabel*>(control.widget)) label->Keep_Numbers_Whole();
    if (auto* box = dynamic_cast<TextBoxWidget*>(control.widget)) box->Keep_Numbers_Whole();
    control.widget->update();
  }
}

QSize FormWindow::Least_Client_Size() const {
  if (!Has_Handler(kWindowItself, Happening::Resize)) return Client_Size(form_);
  constexpr double kLowest = 360;
  return Whole_Pixels(window_.design->smallest_width,
                      std::min(window_.design->smallest_height, kLowest));
}

void FormWindow::Scroll_On_Small_Screens() {
  constexpr int kFrame = 4;
  const QSize least = Least_Client_Size();
  const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const QSize room = screen()->availableGeometry().size() - QSize(2 * kFrame, title + 2 * kFrame);
  const QSize whole = Whole_Size(least);
  if (parentWidget() != nullptr) largest_ = room;
  if (whole.width() <= room.width() && whole.height() <= room.height()) return;
  largest_ = room;
  auto* scrolling = new QScrollArea(this);
  scrolling->setFrameShape(QFrame::NoFrame);
  scrolling->setFocusPolicy(Qt::NoFocus);
  scrolling->setWidgetResizable(true);
  client_->setMinimumSize(least);
  scrolling->setWidget(takeCentralWidget());
  setCentralWidget(scrolling);
  client_->show();
}

void FormWindow::Stand_Below(QStatusBar* strip) {
  strip_ = strip;
  sizing_ = true;
  const QSize client = client_->size();
  setStatusBar(strip);
  strip->show();
  if (!isMaximized() && !isFullScreen()) resize(Whole_Size(client));
  layout()->activate();
  sizing_ = false;
  Send_Size();
}

/// With the bar of the direction in which the inside scrolls, if it does.
QSize FormWindow::Fitting_Size(const QSize& whole) const {
  const QSize fitting = whole.boundedTo(largest_);
  if (qobject_cast<const QScrollArea*>(centralWidget()) == nullptr) return fitting;
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const QSize bars(fitting.height() < whole.height() ? bar : 0,
                   fitting.width() < whole.width() ? bar : 0);
  return (whole + bars).boundedTo(largest_);
}

void FormWindow::Mirror_Size() {
  const QSize wanted = Client_Size(form_);
  if (wanted == record_size_) return;
  record_size_ = wanted;
  if (operator_sizes_) return;
  sizing_ = true;
  const QSize whole = Fitting_Size(Whole_Size(wanted));
  if (Has_Handler(kWindowItself, Happening::Resize)) {
    setMinimumSize(Whole_Pixels(window_.design->smallest_width, window_.design->smallest_height)
                       .boundedTo(whole));
    resize(whole);
  } else {
    setFixedSize(whole);
  }
  sizing_ = false;
}

void FormWindow::Mirror_Controls() {
  for (Mirrored& control : controls_) {
    Mirror_Placing(control);
    control.show_content();
  }
  if (places_changed_) Keep_Apart();
  places_changed_ = false;
}

void FormWindow::Mirror_Placing(Mirrored& control) {
  QWidget& widget = *control.widget;
  QRect placing = Placing(*control.record);
  if (place_) placing = place_(*control.record, placing);
  if (placing != control.placing) {
    control.placing = placing;
    widget.setGeometry(placing);
    places_changed_ = true;
  }
  if (widget.isHidden() == control.record->Visible) {
    widget.setVisible(control.record->Visible);
    places_changed_ = true;
  }
  if (widget.isEnabledTo(client_) != control.record->Enabled) {
    widget.setEnabled(control.record->Enabled);
  }
}

int FormWindow::Room_Right_Of(const Mirrored& control) const {
  constexpr int kSpace = 2;
  const QRect& place = control.placing;
  int room = place.width();
  for (const Mirrored& other : controls_) {
    const int gap = other.placing.left() - place.left();
    const bool covered = other.record->Visible && !Is_Divider(*other.widget) && gap > 0 &&
                         other.placing.intersects(place);
    if (covered) room = std::min(room, gap - kSpace);
  }
  return std::max(room, 1);
}

void FormWindow::Keep_Apart() {
  for (const Mirrored& control : controls_) {
    if (!control.record->Visible || !Carries_Text(*control.widget)) continue;
    int width = Room_Right_Of(control);
    if (auto* box = qobject_cast<QCheckBox*>(control.widget)) width = Fit_Check_Box(*box, width);
    control.widget->resize(width, control.placing.height());
  }
}

void FormWindow::Mirror_Focus() {
  if (focus_version_ == form_.focus_version) return;
  focus_version_ = form_.focus_version;
  QWidget* control = Control_Widget(form_.ActiveControl);
  if (control == nullptr) control = client_;
  control->setFocus();
  if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
  if (form_.Visible) {
    raise();
    activateWindow();
  }
}

void FormWindow::Mirror_Pointer() {
  const bool busy = form_.MousePointer == PointerShape::Hourglass;
  if (busy && cursor().shape() != Qt::WaitCursor) setCursor(Qt::WaitCursor);
  if (!busy && testAttribute(Qt::WA_SetCursor)) unsetCursor();
}

void FormWindow::Send(OperatorEvent::Kind kind, const std::string& control, std::string text) {
  OperatorEvent event;
  event.kind = kind;
  event.form = name_;
  event.control = control;
  event.text = std::move(text);
  events_.Dispatch(event);
}

void FormWindow::Send_Size() {
  const QSize size = client_->size();
  if (sizing_ || !isVisible() || size == Client_Size(form_)) return;
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Resize;
  event.form = name_;
  event.x = size.width();
  event.y = size.height();
  operator_sizes_ = events_.Dispatch_Resize(event);
}

void FormWindow::Send_Move(const QWidget& over, const QMouseEvent& move) {
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Move;
  event.form = name_;
  event.control = Name_Of(&over);
  event.shift = Shift_Mask(move.modifiers());
  event.x = move.position().x();
  event.y = move.position().y();
  events_.Dispatch_Move(event);
}

void FormWindow::Send_Click(const QMouseEvent& press) {
  if (press.button() != Qt::LeftButton && press.button() != Qt::RightButton) return;
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Click;
  event.form = name_;
  event.button = press.button() == Qt::LeftButton ? kLeftButton : kRightButton;
  event.shift = Shift_Mask(press.modifiers());
  event.x = press.position().x();
  event.y = press.position().y();
  events_.Dispatch(event);
}

bool FormWindow::Send_Key(const QKeyEvent& key) {
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Key;
  event.form = name_;
  event.key_code = Event_Key_Code(key);
  event.shift = Shift_Mask(key.modifiers());
  if (event.key_code == 0) return false;
  event.control = Name_Of(focusWidget());
  events_.Dispatch(event);
  return menus_.Has_Key(event.key_code, event.shift);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    // An unhandled key event propagates from the focused widget to the window: handle it only once.
    QWidget* first = focusWidget() != nullptr ? focusWidget() : this;
    if (watched == first && Send_Key(*static_cast<QKeyEvent*>(event))) return true;
  }
  if (watched == client_ && event->type() == QEvent::Resize) Send_Size();
  if (watched == client_ && event->type() == QEvent::MouseButtonPress &&
      Has_Handler(kWindowItself, Happening::MouseDown)) {
    Send_Click(*static_cast<QMouseEvent*>(event));
  }
  if (event->type() == QEvent::MouseMove && Tells_Moves(watched)) {
    const auto& move = *static_cast<QMouseEvent*>(event);
    Send_Move(*static_cast<QWidget*>(watched), move);
    // Otherwise it would propagate and be handled for the window's background as well.
    if (move.buttons() == Qt::NoButton) return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  events_.Dispatch(Close_Event(window_));
}

}  // namespace sylvomex
