// SPDX-License-Identifier: MIT
#include "desktop/answering_screen.h"

#include <utility>

namespace sylvomex {
namespace {

// A command may show a message for every triangle.
constexpr std::size_t kMostNoted = 100;

}  // namespace

void AnsweringScreen::Begin_Outer_Event() {
  known_.clear();
  given_.clear();
}

void AnsweringScreen::Answer_With(std::vector<DialogAnswer> answers) {
  known_.assign(answers.begin(), answers.end());
}

std::optional<DialogAnswer> AnsweringScreen::Known(DialogKind kind, std::string_view question) {
  if (known_.empty()) return std::nullopt;
  DialogAnswer next = std::move(known_.front());
  known_.pop_front();
  if (next.kind == kind && (next.question.empty() || next.question == question)) return next;
  known_.clear();
  return std::nullopt;
}

void AnsweringScreen::Note(DialogAnswer answer) {
  if (given_.size() < kMostNoted) given_.push_back(std::move(answer));
}

Answer AnsweringScreen::Message_Box(std::string_view text, Buttons buttons,
                                    std::string_view title) {
  const auto known = Known(DialogKind::Message, text);
  const Answer answer = known ? known->button : Behind().Message_Box(text, buttons, title);
  Note({DialogKind::Message, std::string(text), std::nullopt, answer});
  return answer;
}

std::optional<std::string> AnsweringScreen::Input_Box(std::string_view prompt,
                                                      std::string_view title,
                                                      std::string_view preset) {
  const auto known = Known(DialogKind::Input, prompt);
  auto text = known ? known->text : Behind().Input_Box(prompt, title, preset);
  Note({DialogKind::Input, std::string(prompt), text});
  return text;
}

std::optional<std::string> AnsweringScreen::File_Dialog(const FileQuestion& question) {
  const auto known = Known(DialogKind::File, question.title);
  auto file = known ? known->text : Behind().File_Dialog(question);
  Note({DialogKind::File, question.title, file});
  return file;
}

}  // namespace sylvomex
