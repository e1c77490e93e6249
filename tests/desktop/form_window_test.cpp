// SPDX-License-Identifier: MIT
// A window made from its design rows only.
#include "desktop/form_window.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWindow>
#include <sstream>

#include "desktop_fixture.h"
#include "session/event_steps.h"
#include "session/script_screen.h"
#include "support/sample_window.h"

namespace sylvomex {
namespace {

/// Records what a window sends, as script steps.
struct NotedEvents : OperatorEvents {
  void Dispatch(const OperatorEvent& event) override { steps += Step_Text(event) + "\n"; }
  void Dispatch_Move(const OperatorEvent& event) override { Dispatch(event); }
  bool Dispatch_Resize(const OperatorEvent& event) override {
    Dispatch(event);
    return true;
  }
  const QCursor& Custom_Cursor(const std::string& file) override {
    cursor_file = file;
    return cursor;
  }

  std::string steps;
  std::string cursor_file;
  QCursor cursor{Qt::CrossCursor};
};

struct FormWindowTest : testing::Test {
  FormWindowTest() {
    form.Visible = true;
    window.Mirror();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 60000));
    events.steps.clear();
  }

  QWidget& Control(const char* name) { return *window.Control_Widget(name); }

  TemporaryFolder folder;
  std::ostringstream out;
  ScriptScreen screen{out, out};
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(folder.Drives(), screen);
  SampleForm form;
  NotedEvents events;
  FormWindow window{events, *block, sample::kWindow, nullptr};
};

TEST_F(FormWindowTest, HasAWidgetForEveryControlOfItsRows) {
  EXPECT_NE(dynamic_cast<PictureWidget*>(&Control("Picture1")), nullptr);
  EXPECT_EQ(Control("Picture2(1)").geometry(), QRect(110, 120, 90, 60));
  EXPECT_EQ(dynamic_cast<QLineEdit&>(Control("Text1")).text(), "start");
  EXPECT_EQ(window.Control_Widget("Picture2"), nullptr);
  EXPECT_EQ(window.windowTitle(), "A sample");
}

TEST_F(FormWindowTest, TakesItsMenuFromItsRows) {
  window.findChild<QAction*>("Say_It")->trigger();
  EXPECT_EQ(events.steps, "menu Form99.Say_It\n");
}

TEST_F(FormWindowTest, HasALineInItsMenuForASeparator) {
  EXPECT_TRUE(window.findChild<QAction*>("set_a")->isSeparator());
}

TEST_F(FormWindowTest, ChoosesAnOptionAndShowsWhichOneIsChosen) {
  auto& first = dynamic_cast<QRadioButton&>(Control("Option1(0)"));
  auto& second = dynamic_cast<QRadioButton&>(Control("Option1(1)"));
  EXPECT_EQ(second.text(), "Zoom");
  second.click();
  EXPECT_EQ(events.steps, "set Form99.Option1(1) 1\n");
  form.Option1(0).Value = 1;
  window.Mirror();
  EXPECT_TRUE(first.isChecked());
  EXPECT_FALSE(second.isChecked());
}

TEST_F(FormWindowTest, PicturesHaveThePointersOfTheirOwnFiles) {
  form.Picture1.MousePointer = PointerShape::Custom;
  form.Picture1.PointerFile = "c:\\data\\other.CUR";
  window.Mirror();
  EXPECT_EQ(events.cursor_file, "c:\\data\\other.CUR");
  EXPECT_EQ(Control("Picture1").cursor().shape(), Qt::CrossCursor);
}

TEST_F(FormWindowTest, SendsClicksOnPicturesWithAndWithoutIndex) {
  QTest::mouseClick(&Control("Picture2(1)"), Qt::LeftButton, Qt::ControlModifier, QPoint(12, 22));
  QTest::mouseClick(&Control("Picture1"), Qt::RightButton, {}, QPoint(7, 8));
  EXPECT_EQ(events.steps, "click Form99.Picture2(1) 10 20 ctrl\nclick Form99.Picture1 5 6 right\n");
}

TEST_F(FormWindowTest, SendsADoubleClickWhereItIsHandled) {
  QTest::mouseDClick(&Control("Picture1"), Qt::LeftButton, {}, QPoint(7, 8));
  // A double click as Qt delivers it: press and release of a click before the double-click event.
  QTest::mouseClick(&Control("Picture2(0)"), Qt::LeftButton, {}, QPoint(7, 8));
  QTest::mouseDClick(&Control("Picture2(0)"), Qt::LeftButton, {}, QPoint(7, 8));
  EXPECT_NE(events.steps.find("doubleclick Form99.Picture1 5 6\n"), std::string::npos);
  EXPECT_EQ(events.steps.find("doubleclick Form99.Picture2(0)"), std::string::npos);
  EXPECT_NE(events.steps.find("click Form99.Picture2(0) 5 6\nclick Form99.Picture2(0) 5 6\n"),
            std::string::npos);
}

TEST_F(FormWindowTest, SendsClicksOnItsBackground) {
  QTest::mouseClick(window.centralWidget(), Qt::LeftButton, {}, QPoint(300, 250));
  EXPECT_EQ(events.steps, "click Form99 300 250\n");
}

TEST_F(FormWindowTest, CanBeResizedWhenItHasAResizeHandler) {
  const int menu = window.Menu_Height();
  EXPECT_EQ(window.minimumSize(), QSize(200, 160));
  window.resize(500, 400 + menu);
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return events.steps.find("resize Form99 500 400\n") != std::string::npos; }, 2000));
}

TEST_F(FormWindowTest, SendsKeysWhicheverControlHasTheFocus) {
  Control("Picture1").setFocus();
  QTest::keyClick(&Control("Picture1"), Qt::Key_U);
  EXPECT_EQ(events.steps, "key Form99 U\n");
}

TEST_F(FormWindowTest, ClosesWithTheStepThatAScriptWouldPlay) {
  window.close();
  EXPECT_EQ(events.steps, "close Form99\n");
}

class WindowOrder : public DesktopTest {};

// The window system keeps a dialog above the window that it is transient for.
TEST_F(WindowOrder, SecondaryWindowsStayAboveTheMainWindow) {
  for (const WindowRow& row : All_Windows().subspan(1)) {
    row.record(w()).Visible = true;
    desktop_->Shown().Mirror();
    const QWindow* handle = Window(row.name).windowHandle();
    ASSERT_NE(handle, nullptr) << row.name;
    EXPECT_EQ(handle->transientParent(), Main().windowHandle()) << row.name;
    EXPECT_EQ(handle->type(), Qt::Dialog) << row.name;
  }
  EXPECT_EQ(Main().windowHandle()->type(), Qt::Window);
}

TEST_F(WindowOrder, OnlyWindowsThatCanBeResizedHaveAMaximizeButton) {
  for (const char* resizable : {"Form1", "Form6"}) {
    EXPECT_TRUE(Window(resizable).windowFlags().testFlag(Qt::WindowMaximizeButtonHint))
        << resizable;
  }
  for (const char* rigid : {"Form2", "Form3", "Form7"}) {
    EXPECT_FALSE(Window(rigid).windowFlags().testFlag(Qt::WindowMaximizeButtonHint)) << rigid;
  }
}

}  // namespace
}  // namespace sylvomex
