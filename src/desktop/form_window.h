// SPDX-License-Identifier: MIT
// A window that shows one form of the block. It holds no state of its own: Mirror copies the
// records to the widgets, and the operator's input goes out as OperatorEvents.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QStatusBar>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/control_widgets.h"
#include "desktop/form_menus.h"
#include "desktop/operator_events.h"
#include "desktop/picture_widget.h"
#include "workspace/window_table.h"

namespace sylvomex {

class FormWindow : public QMainWindow {
 public:
  /// The block and the row must outlive the window. owner: the main window, above which the other
  /// windows stay; nullptr for the main window itself.
  FormWindow(OperatorEvents& events, Workspace& w, const WindowRow& window, QWidget* owner);

  /// Copies changes in the records to the widgets, while the window is shown.
  void Mirror();

  /// Copies everything except the window's visibility: for pictures of a hidden window.
  void Mirror_Unshown();

  [[nodiscard]] const std::string& Name() const { return name_; }

  /// The widget of a control, "Text1(3)"; nullptr for an unknown name.
  [[nodiscard]] QWidget* Control_Widget(const std::string& name) const;

  /// Words before the window's title, "42 % - "; empty for none.
  void Lead_Title(const QString& lead);

  /// Height of the menu bar; the client area lies below it.
  [[nodiscard]] int Menu_Height() const;

  /// Labels and boxes that are too narrow for a number show fewer decimals of it, never a part.
  void Keep_Numbers_Whole();

  /// Controls stand where the function puts them, given a record and its own place; the records
  /// keep theirs.
  void Place_By(std::function<QRect(const Control&, const QRect&)> place) {
    place_ = std::move(place);
  }

  /// The window is no larger than its screen has room for. Where its boxes need more, its client
  /// area keeps its size and scrolls.
  void Scroll_On_Small_Screens();

  /// Puts a strip of fixed height below the client area, which keeps its size unless the window
  /// fills the screen. The window owns it.
  void Stand_Below(QStatusBar* strip);

  /// The focus is on none of its controls from now on.
  void Give_Keys_To_Panes() { client_->setFocus(); }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Mirrored {
    std::string name;
    const Control* record;
    QWidget* widget;
    std::function<void()> show_content;
    QRect placing;  // as last copied from the record, or as placed instead
  };

  void Add_Control(const std::string& name, AnyControl any);
  void Add_Control(const std::string& name, const Label& record);
  void Add_Control(const std::string& name, const TextBox& record);
  void Add_Control(const std::string& name, const CheckBox& record);
  void Add_Control(const std::string& name, const OptionButton& record);
  void Add_Control(const std::string& name, const Button& record);
  void Add_Control(const std::string& name, const Divider& record);
  void Add_Control(const std::string& name, const Picture& record);
  void Add(const std::string& name, const Control& record, QWidget* widget,
           std::function<void()> show_content);

  void Place_Over_Owner();
  [[nodiscard]] QSize Whole_Size(QSize client) const;  // with the menu and the strip
  [[nodiscard]] QSize Fitting_Size(const QSize& whole) const;
  [[nodiscard]] QSize Least_Client_Size() const;
  [[nodiscard]] bool Has_Handler(const std::string& control, Happening happening) const;
  void Mirror_Title();
  void Mirror_Size();
  void Mirror_Controls();
  void Mirror_Placing(Mirrored& control);

  /// Ends labels, text boxes and check boxes where another control begins; a check box is never
  /// wider than its caption.
  void Keep_Apart();
  [[nodiscard]] int Room_Right_Of(const Mirrored& control) const;
  void Mirror_Focus();
  void Mirror_Pointer();
  void Send(OperatorEvent::Kind kind, const std::string& control, std::string text = {});
  void Send_Size();
  void Send_Click(const QMouseEvent& press);  // on the window's background
  void Send_Move(const QWidget& over, const QMouseEvent& move);
  bool Send_Key(const QKeyEvent& key);  // true for the accelerator of a menu item
  [[nodiscard]] std::string Name_Of(const QWidget* widget) const;

  OperatorEvents& events_;
  Workspace& w_;
  const WindowRow& window_;
  std::string name_;
  Form& form_;
  QWidget* client_;
  FormMenus menus_;
  QPointer<QStatusBar> strip_;
  QString title_lead_;
  QSize largest_{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};  // with the menu and the strip
  std::function<QRect(const Control&, const QRect&)> place_;
  std::vector<Mirrored> controls_;
  QSize record_size_;            // client size of the record when last compared
  bool operator_sizes_ = false;  // the operator has resized the window; the record follows
  bool sizing_ = false;          // the window is adopting the record's size and does not report it
  bool places_changed_ = false;  // Keep_Apart must run
  bool placed_ = false;          // has been shown once; from then on its position is kept
  std::uint64_t focus_version_ = 0;
};

}  // namespace sylvomex
