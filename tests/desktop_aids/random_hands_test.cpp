// SPDX-License-Identifier: MIT
// Random mouse and keys on the real windows with their aids. $SYLVOMEX_WINDOW_EVENTS: how many, 200
// unless set; $SYLVOMEX_SEED: another run.
#include <QAction>
#include <QMenu>
#include <cstdlib>
#include <iostream>
#include <random>

#include "aids_fixture.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

long Number_In(const char* variable, long otherwise) {
  const char* const text = std::getenv(variable);
  return text != nullptr ? std::atol(text) : otherwise;
}

class RandomHands : public AidedDesktop {
 protected:
  RandomHands() {
    // What no answer is made for: menus, and dialogs of other kinds.
    QObject::connect(&closer_, &QTimer::timeout, [] {
      if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      const bool is_answered = qobject_cast<QFileDialog*>(dialog) != nullptr ||
                               qobject_cast<QInputDialog*>(dialog) != nullptr ||
                               qobject_cast<QMessageBox*>(dialog) != nullptr;
      if (dialog != nullptr && !is_answered) dialog->reject();
    });
    closer_.start(20);
    dialogs_.silence = true;  // else a view beyond its image asks for every pixel
  }

  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  template <class Choices>
  auto One_Of(const Choices& choices) {
    return choices[static_cast<std::size_t>(Below(static_cast<int>(std::size(choices))))];
  }

  void Plan_Answers() {
    constexpr const char* kTexts[] = {"0", "3", "10", "abc", "", "-5", "1e300", "c:\\data\\x.txt"};
    dialogs_.inputs.clear();
    dialogs_.files.clear();
    for (int i = Below(4); i > 0; --i) dialogs_.inputs.emplace_back(One_Of(kTexts));
    constexpr const char* kFiles[] = {"a.hdr", "b.hdr", "a.raw", "none.hdr"};
    if (Below(2) == 0) {
      dialogs_.files.push_back((site_.Folder().Path() / "c/data" / One_Of(kFiles)).string());
    }
    dialogs_.choice = Below(3) == 0 ? QMessageBox::Cancel : QMessageBox::Ok;
  }

  FormWindow& Some_Window() {
    const auto windows = All_Windows();
    const char* name = windows[static_cast<std::size_t>(Below(std::ssize(windows)))].name;
    FormWindow* const window = desktop_->Shown().Find(name);
    return window != nullptr && window->isVisible() ? *window : Main();
  }

  QWidget& Some_Widget(FormWindow& window) {
    std::vector<QWidget*> shown{&window};
    for (QWidget* child : window.findChildren<QWidget*>()) {
      const bool is_within = child->window() == &window && child->isVisible();
      if (is_within && qobject_cast<QMenu*>(child) == nullptr) shown.push_back(child);
    }
    return *One_Of(shown);
  }

  static QPointF Somewhere(const QWidget& in, int x, int y) {
    return {static_cast<double>(x % std::max(1, in.width())),
            static_cast<double>(y % std::max(1, in.height()))};
  }

  void Use_Mouse(QWidget& on) {
    constexpr Qt::MouseButton kButtons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                            Qt::MiddleButton};
    const Qt::KeyboardModifiers held(Below(4) == 0 ? Below(8) << 25 : 0);
    const QPointF at = Somewhere(on, Below(2000), Below(2000));
    const Qt::MouseButton button = One_Of(kButtons);
    const QPointer<QWidget> alive(&on);
    const auto send = [&](QEvent::Type type, Qt::MouseButton pressed, Qt::MouseButtons down) {
      if (alive) Send_Mouse(on, type, at, pressed, down, held);
    };
    if (Below(3) == 0) return send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
    if (Below(5) == 0) {
      QWheelEvent wheel(at, on.mapToGlobal(at), {}, {0, 120 * (Below(5) - 2)}, Qt::NoButton, held,
                        Qt::NoScrollPhase, false);
      QApplication::sendEvent(&on, &wheel);
      return;
    }
    send(QEvent::MouseButtonPress, button, button);
    if (Below(6) == 0) send(QEvent::MouseMove, Qt::NoButton, button);
    send(QEvent::MouseButtonRelease, button, Qt::NoButton);
    if (Below(6) == 0) send(QEvent::MouseButtonDblClick, button, button);
  }

  void Use_Keys(FormWindow& window) {
    constexpr Qt::Key kKeys[] = {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,  Qt::Key_Backspace,
                                 Qt::Key_F1,     Qt::Key_F2,     Qt::Key_Left, Qt::Key_Up,
                                 Qt::Key_Delete, Qt::Key_Space};
    const int key = Below(3) == 0 ? One_Of(kKeys) : Qt::Key_0 + Below(43);
    const Qt::KeyboardModifiers held(Below(3) == 0 ? Below(8) << 25 : 0);
    QWidget* const focus = window.focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &window, static_cast<Qt::Key>(key), held);
  }

  void Choose_Some_Item(FormWindow& window) {
    const auto actions = window.findChildren<QAction*>();
    if (actions.isEmpty()) return;
    QAction* const action = actions.at(Below(static_cast<int>(actions.size())));
    if (action->isEnabled()) action->trigger();
  }

  void Play_One() {
    Plan_Answers();
    FormWindow& window = Some_Window();
    const int choice = Below(100);
    if (choice < 55) return Use_Mouse(Some_Widget(window));
    if (choice < 75) return Use_Keys(window);
    if (choice < 95) return Choose_Some_Item(window);
    if (choice < 98) return window.resize(200 + Below(1000), 150 + Below(700));
    window.close();
  }

  void Start_Again() {
    aids_.reset();
    Start({});
    dialogs_.inputs.clear();
    dialogs_.files.clear();
    dialogs_.choice = QMessageBox::Ok;
    Add_Two_Images();
    aids_.emplace(*desktop_);
    ends_ = 0;
    ++sessions_;
  }

  std::mt19937 random_{static_cast<std::uint32_t>(Number_In("SYLVOMEX_SEED", 1))};
  QTimer closer_;
  int sessions_ = 1;
};

TEST_F(RandomHands, DoNotBringTheWindowsDown) {
  const long count = Number_In("SYLVOMEX_WINDOW_EVENTS", 200);
  for (long n = 0; n < count; ++n) {
    Play_One();
    QApplication::processEvents();
    ASSERT_FALSE(desktop_->Is_Busy());
    if (ends_ > 0 || !Main().isVisible()) Start_Again();
  }
  std::cout << count << " events in " << sessions_ << " sessions, " << dialogs_.titles.size()
            << " dialogs\n";
}

}  // namespace
}  // namespace sylvomex
