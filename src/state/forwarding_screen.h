// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "state/screen.h"

namespace sylvomex {

/// Forwards everything to another screen, which must outlive it. Those that change something on the
/// way derive from it.
class ForwardingScreen : public Screen {
 public:
  explicit ForwardingScreen(Screen& behind) : behind_(&behind) {}

  /// Forwards to another screen from now on, and returns the former one.
  Screen& Forward_To(Screen& screen) { return *std::exchange(behind_, &screen); }

  void Tell_Cause(std::string_view cause) override { behind_->Tell_Cause(cause); }
  Answer Message_Box(std::string_view text, Buttons buttons, std::string_view title) override {
    return behind_->Message_Box(text, buttons, title);
  }
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title,
                                       std::string_view preset) override {
    return behind_->Input_Box(prompt, title, preset);
  }
  std::optional<std::string> File_Dialog(const FileQuestion& question) override {
    return behind_->File_Dialog(question);
  }
  void Beep(int frequency, int duration) override { behind_->Beep(frequency, duration); }
  void Clear_Clipboard() override { behind_->Clear_Clipboard(); }
  void Copy_To_Clipboard(const PaneBitmap& picture) override {
    behind_->Copy_To_Clipboard(picture);
  }
  void Service_Events() override { behind_->Service_Events(); }
  double Clock() override { return behind_->Clock(); }
  double Random() override { return behind_->Random(); }
  void Report_Error(std::string_view command, std::string_view text,
                    std::string_view native_path) override {
    behind_->Report_Error(command, text, native_path);
  }
  void End_Session() override { behind_->End_Session(); }

 protected:
  [[nodiscard]] Screen& Behind() { return *behind_; }

 private:
  Screen* behind_;
};

}  // namespace sylvomex
