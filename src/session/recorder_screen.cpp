// SPDX-License-Identifier: MIT
#include "session/recorder_screen.h"

#include "session/transcript_text.h"

namespace sylvomex {

Answer RecorderScreen::Message_Box(std::string_view text, Buttons buttons, std::string_view title) {
  const Answer answer = Behind().Message_Box(text, buttons, title);
  if (buttons != Buttons::Ok) {
    recorder_.Dialog_Answered(DialogKind::Message, Answer_Name(answer));
  }
  return answer;
}

std::optional<std::string> RecorderScreen::Input_Box(std::string_view prompt,
                                                     std::string_view title,
                                                     std::string_view preset) {
  std::optional<std::string> answer = Behind().Input_Box(prompt, title, preset);
  recorder_.Dialog_Answered(DialogKind::Input, answer);
  return answer;
}

std::optional<std::string> RecorderScreen::File_Dialog(const FileQuestion& question) {
  std::optional<std::string> answer = Behind().File_Dialog(question);
  recorder_.Dialog_Answered(DialogKind::File, answer);
  return answer;
}

void RecorderScreen::Service_Events() {
  recorder_.Events_Serviced();
  Behind().Service_Events();
}

void RecorderScreen::End_Session() {
  recorder_.Finish();
  Behind().End_Session();
}

}  // namespace sylvomex
