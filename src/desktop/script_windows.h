// SPDX-License-Identifier: MIT
// The windows of a scripted session. They only show: the script is the operator.
#pragma once

#include <QApplication>
#include <memory>

#include "desktop/windows.h"
#include "session/window_pictures.h"

namespace sylvomex {

class ScriptWindows : public WindowPictures, public OperatorEvents {
 public:
  /// Nothing of Qt is made before the first picture or showing is asked for. on_screen: the
  /// windows appear; otherwise no display is needed.
  explicit ScriptWindows(bool on_screen) : on_screen_(on_screen) {}

  /// The block of the session, before anything else.
  void Take_Block(Workspace& w) { w_ = &w; }

  /// Brings the windows on the screen up to date.
  void Show();

  void Save_Window(const std::string& form, const std::filesystem::path& file) override;

  // The operator's hand is not asked for.
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
