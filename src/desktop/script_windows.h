// SPDX-License-Identifier: MIT
// The windows of a scripted session. They only display: input comes from the script.
#pragma once

#include <QApplication>
#include <memory>

#include "desktop/windows.h"
#include "session/window_pictures.h"

namespace sylvomex {

class ScriptWindows : public WindowPictures, public OperatorEvents {
 public:
  /// Creates no Qt object before the first picture or display is requested. on_screen: show the
  /// windows; otherwise no display is needed.
  explicit ScriptWindows(bool on_screen) : on_screen_(on_screen) {}

  /// Sets the session's block; call this first.
  void Take_Block(Workspace& w) { w_ = &w; }

  /// Updates the windows on the screen.
  void Show();

  /// Lets them be seen for that time; they are repainted and can be moved meanwhile.
  static void Wait(double seconds);

  void Save_Window(const std::string& form, const std::filesystem::path& file) override;

  // Input from the windows is ignored.
  void Dispatch(const OperatorEvent&) override {}
  void Dispatch_Move(const OperatorEvent&) override {}
  bool Dispatch_Resize(const OperatorEvent&) override { return false; }
  const QCursor& Custom_Cursor(const std::string& file) override;

 private:
  void Make_Windows();

  bool on_screen_;
  Workspace* w_ = nullptr;
  int argument_count_ = 1;
  std::string program_ = "sylvomex";
  char* arguments_[2] = {program_.data(), nullptr};
  std::unique_ptr<QApplication> application_;
  std::unique_ptr<Windows> windows_;
};

}  // namespace sylvomex
