// SPDX-License-Identifier: MIT
// A started desktop over a site with two small images, driven by mouse and keys.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "dialog_answers.h"
#include "support/small_site.h"

namespace sylvomex {

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() { Start({}); }

  void Start(const std::filesystem::path& record) {
    desktop_.reset();
    desktop_ = std::make_unique<Desktop>(
        DesktopOptions{site_.Drives(), QSize(1000, 700), record, [this] { ++ends_; }});
    desktop_->Start();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Main(), 60000));
  }

  /// Waits for a condition that pending events will fulfil.
  template <class Condition>
  static bool Soon(Condition&& condition) {
    return QTest::qWaitFor(condition, 60000);
  }

  Workspace& w() { return desktop_->Block(); }
  FormWindow& Main() { return desktop_->Shown().Main(); }
  FormWindow& Window(const char* form) { return *desktop_->Shown().Find(form); }

  template <class Widget>
  Widget& Get(const std::string& control, const char* form = "Form1") {
    return dynamic_cast<Widget&>(*Window(form).Control_Widget(control));
  }
  PictureWidget& Pane(int k) { return Get<PictureWidget>("Picture1(" + std::to_string(k) + ")"); }

  void Choose(const char* item, const char* form = "Form1") {
    Window(form).findChild<QAction*>(item)->trigger();
  }

  void Add_Image(const std::string& name, const SmallImage& image) {
    site_.Write_Image(name, image);
    dialogs_.files.push_back((site_.Folder().Path() / "c/data" / (name + ".hdr")).string());
    Choose("Add_images_to_set");
  }

  void Add_Two_Images() {
    SmallImage second;
    second.id = 2;
    second.X0 = 100;
    Add_Image("a", {});
    Add_Image("b", second);
    ASSERT_EQ(w().ImageCount, 2);
  }

  void Click_Pane(int k, int px, int py, Qt::MouseButton button = Qt::LeftButton,
                  Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(&Pane(k), button, modifiers,
                      QPoint(px + kPictureBorder, py + kPictureBorder));
  }

  void Press_Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const char* form = "Form1") {
    QWidget* focus = Window(form).focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &Window(form), key, modifiers);
  }

  SmallSite site_;
  DialogAnswers dialogs_;
  int ends_ = 0;
  std::unique_ptr<Desktop> desktop_;
};

}  // namespace sylvomex
