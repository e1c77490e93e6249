// SPDX-License-Identifier: MIT
#include "session/script_screen.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "session/transcript_text.h"

namespace sylvomex {

namespace {

std::vector<Answer> Choice(Buttons buttons) {
  switch (buttons) {
    case Buttons::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo:
      return {Answer::Yes, Answer::No};
    case Buttons::Ok:
      break;
  }
  return {Answer::Ok};
}

std::string Button_Names(Buttons buttons) {
  std::string names;
  for (const Answer answer : Choice(buttons)) {
    names += (names.empty() ? "" : ",") + Answer_Name(answer);
  }
  return names;
}

std::string Kind_Name(QueuedAnswer::Kind kind) {
  constexpr std::array<const char*, 4> kNames{"input", "file", "button", "cancel"};
  return kNames[static_cast<std::size_t>(kind)];
}

bool Fits(QueuedAnswer::Kind answer, QueuedAnswer::Kind wanted) {
  const bool can_be_dismissed = wanted != QueuedAnswer::Kind::Button;
  return answer == wanted || (answer == QueuedAnswer::Kind::Cancel && can_be_dismissed);
}

std::string Text_Answer(const std::optional<std::string>& answer) {
  return answer ? Quoted(*answer) : "cancel";
}

}  // namespace

double Uniform_Of(std::mt19937& generator) {
  return static_cast<double>(generator()) / 4294967296.0;
}

ScriptScreen::ScriptScreen(std::ostream& transcript, std::ostream& log)
    : transcript_(transcript), log_(log) {}

void ScriptScreen::Queue_Step(long n, ScriptStep step) {
  waiting_steps_.push_back({servicings_ + n, std::move(step)});
}

void ScriptScreen::Play_Queued_Steps_By(std::function<void(const ScriptStep&)> play) {
  play_ = std::move(play);
}

void ScriptScreen::Write_Line(std::string_view line) { transcript_ << line << '\n'; }

void ScriptScreen::Fail(std::string reason) {
  failure_ = StepEnd{kStepFailed, std::move(reason)};
  throw *failure_;
}

QueuedAnswer ScriptScreen::Take_Answer(QueuedAnswer::Kind wanted, const std::string& dialog) {
  if (answers_.empty()) Fail(dialog + " found no answer");
  if (!Fits(answers_.front().kind, wanted)) {
    Fail(dialog + " found an answer of another kind: " + Kind_Name(answers_.front().kind) + " " +
         Quoted(answers_.front().text));
  }
  QueuedAnswer answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

std::optional<std::string> ScriptScreen::Take_Text(QueuedAnswer::Kind wanted,
                                                   const std::string& dialog) {
  if (feed_ != nullptr) feed_->Dialog_Opens(wanted, Buttons::Ok);
  QueuedAnswer answer = Take_Answer(wanted, dialog);
  if (answer.kind == QueuedAnswer::Kind::Cancel) return std::nullopt;
  return std::move(answer.text);
}

void ScriptScreen::Tell_Cause(std::string_view cause) {
  log_ << "sylvomex: " << One_Line(cause) << '\n';
}

Answer ScriptScreen::Message_Box(std::string_view text, Buttons buttons, std::string_view title) {
  if (feed_ != nullptr) feed_->Dialog_Opens(QueuedAnswer::Kind::Button, buttons);
  const std::vector<Answer> choice = Choice(buttons);
  const std::string dialog = "message " + Quoted(text);
  auto chosen = choice.begin();
  if (choice.size() > 1) {
    const QueuedAnswer answer = Take_Answer(QueuedAnswer::Kind::Button, dialog);
    chosen = std::ranges::find(choice, answer.text, Answer_Name);
    if (chosen == choice.end()) Fail(dialog + " has no button " + answer.text);
  }
  Write_Line(dialog + " title=" + Quoted(title) + " buttons=" + Button_Names(buttons) + " -> " +
             Answer_Name(*chosen));
  return *chosen;
}

std::optional<std::string> ScriptScreen::Input_Box(std::string_view prompt, std::string_view title,
                                                   std::string_view preset) {
  const std::string dialog = "input " + Quoted(prompt);
  std::optional<std::string> answer = Take_Text(QueuedAnswer::Kind::Input, dialog);
  Write_Line(dialog + " title=" + Quoted(title) + " default=" + Quoted(preset) + " -> " +
             Text_Answer(answer));
  return answer;
}

std::optional<std::string> ScriptScreen::File_Dialog(const FileQuestion& question) {
  const std::string dialog = "file title=" + Quoted(question.title);
  std::optional<std::string> answer = Take_Text(QueuedAnswer::Kind::File, dialog);
  Write_Line(dialog + " filter=" + Quoted(question.filter) + " folder=" + Quoted(question.folder) +
             " -> " + Text_Answer(answer));
  return answer;
}

void ScriptScreen::Beep(int frequency, int duration) {
  Write_Line("beep " + std::to_string(frequency) + " " + std::to_string(duration));
}

void ScriptScreen::Copy_To_Clipboard(const PaneBitmap& picture) {
  Write_Line("clipboard " + std::to_string(picture.width) + "x" + std::to_string(picture.height));
}

std::optional<ScriptStep> ScriptScreen::Take_Step(long servicing) {
  const auto due = std::ranges::find(waiting_steps_, servicing, &WaitingStep::servicing);
  if (due == waiting_steps_.end()) return std::nullopt;
  ScriptStep step = std::move(due->step);
  waiting_steps_.erase(due);
  return step;
}

void ScriptScreen::Service_Events() {
  // A step can service events itself: nested servicings get later numbers, this one keeps its own.
  const long servicing = ++servicings_;
  if (feed_ != nullptr) feed_->Servicing_Begins();
  while (const auto step = Take_Step(servicing)) play_(*step);
  if (after_servicing_) after_servicing_();
}

double ScriptScreen::Clock() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

double ScriptScreen::Random() { return Uniform_Of(generator_); }

void ScriptScreen::Report_Error(std::string_view command, std::string_view text,
                                std::string_view native_path) {
  Write_Line("error " + std::string(command) + " " + Quoted(text));
  if (!native_path.empty()) log_ << "error " << command << ": " << native_path << '\n';
}

}  // namespace sylvomex
