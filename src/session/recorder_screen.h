// SPDX-License-Identifier: MIT
#pragma once

#include "session/recorder.h"
#include "state/screen.h"

namespace sylvomex {

/// Forwards everything to another screen and reports the operator's answers to a recorder. Both
/// must outlive it.
class RecorderScreen : public Screen {
 public:
  RecorderScreen(Screen& screen, Recorder& recorder) : screen_(screen), recorder_(recorder) {}

  void Tell_Cause(std::string_view cause) override { screen_.Tell_Cause(cause); }
  Answer Message_Box(std::string_view text, Buttons buttons, std::string_view title) override;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title,
                                       std::string_view preset) override;
  std::optional<std::string> File_Dialog(const FileQuestion& question) override;
  void Beep(int frequency, int duration) override { screen_.Beep(frequency, duration); }
  void Clear_Clipboard() override { screen_.Clear_Clipboard(); }
  void Copy_To_Clipboard(const PaneBitmap& picture) override { screen_.Copy_To_Clipboard(picture); }
  void Service_Events() override;
  double Clock() override { return screen_.Clock(); }
  double Random() override { return screen_.Random(); }
  void Report_Error(std::string_view command, std::string_view text,
                    std::string_view native_path) override;
  void End_Session() override;

 private:
  Screen& screen_;
  Recorder& recorder_;
};

}  // namespace sylvomex
