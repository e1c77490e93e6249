// SPDX-License-Identifier: MIT
// A screen for tests: answers dialogs from queues and records all output to the operator.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "state/screen.h"

namespace sylvomex {

class RecordingScreen : public Screen {
 public:
  struct InputBox {
    std::string prompt, title, preset;
  };

  // Answers, used in order. An input box or file dialog that finds its queue empty fails the test
  // and counts as dismissed; so does a message box with a choice.
  std::deque<std::optional<std::string>> inputs;
  std::deque<std::optional<std::string>> files;
  std::deque<Answer> answers;
  std::function<void()> on_service;

  // Output to the operator.
  std::vector<std::string> messages;
  std::vector<std::string> causes;
  std::vector<InputBox> input_boxes;
  std::vector<FileQuestion> file_questions;
  std::vector<std::pair<int, int>> beeps;  // hertz, milliseconds
  std::vector<std::string> errors;
  int servicings = 0;

  void Tell_Cause(std::string_view cause) override { causes.emplace_back(cause); }

  Answer Message_Box(std::string_view text, Buttons buttons, std::string_view) override {
    messages.emplace_back(text);
    if (buttons == Buttons::Ok) return Answer::Ok;
    const Answer dismissed = buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    return Take(answers, "message box").value_or(dismissed);
  }

  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title,
                                       std::string_view preset) override {
    input_boxes.push_back({std::string(prompt), std::string(title), std::string(preset)});
    return Take(inputs, "input box").value_or(std::nullopt);
  }

  std::optional<std::string> File_Dialog(const FileQuestion& question) override {
    file_questions.push_back(question);
    return Take(files, "file dialog").value_or(std::nullopt);
  }

  void Beep(int frequency, int duration) override { beeps.emplace_back(frequency, duration); }
  void Clear_Clipboard() override {}
  void Copy_To_Clipboard(const PaneBitmap&) override {}
  void Service_Events() override {
    ++servicings;
    if (on_service) on_service();
  }
  double Clock() override { return 0; }
  double Random() override { return 0; }
  void Report_Error(std::string_view command, std::string_view text, std::string_view) override {
    errors.push_back(std::string(command) + ": " + std::string(text));
  }
  void End_Session() override {}

 private:
  template <class Queued>
  static std::optional<Queued> Take(std::deque<Queued>& queue, const char* dialog) {
    if (queue.empty()) {
      ADD_FAILURE() << "a " << dialog << " found no answer";
      return std::nullopt;
    }
    Queued answer = queue.front();
    queue.pop_front();
    return answer;
  }
};

}  // namespace sylvomex
