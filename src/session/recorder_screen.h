// SPDX-License-Identifier: MIT
#pragma once

#include "session/recorder.h"
#include "state/forwarding_screen.h"

namespace sylvomex {

/// Forwards everything to another screen and reports the operator's answers to a recorder. Both
/// must outlive it.
class RecorderScreen : public ForwardingScreen {
 public:
  RecorderScreen(Screen& screen, Recorder& recorder)
      : ForwardingScreen(screen), recorder_(recorder) {}

  Answer Message_Box(std::string_view text, Buttons buttons, std::string_view title) override;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title,
                                       std::string_view preset) override;
  std::optional<std::string> File_Dialog(const FileQuestion& question) override;
  void Service_Events() override;
  void End_Session() override;

 private:
  Recorder& recorder_;
};

}  // namespace sylvomex
