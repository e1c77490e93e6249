// SPDX-License-Identifier: MIT
#include "session/journal_screen.h"

#include "session/script_screen.h"
#include "session/transcript_text.h"

namespace sylvomex {
namespace {

// An open dialog of the journal; one whose screen throws is left without an answer.
class OpenDialog {
 public:
  explicit OpenDialog(Journal& journal) : journal_(journal) { journal.Dialog_Opens(); }
  ~OpenDialog() { journal_.Dialog_Left(); }
  OpenDialog(const OpenDialog&) = delete;
  OpenDialog& operator=(const OpenDialog&) = delete;

  void Answered(DialogKind kind, const std::optional<std::string>& answer) {
    journal_.Dialog_Answered(kind, answer);
  }

 private:
  Journal& journal_;
};

class OpenServicing {
 public:
  explicit OpenServicing(Journal& journal) : journal_(journal) { journal.Servicing_Begins(); }
  ~OpenServicing() { journal_.Servicing_Ends(); }
  OpenServicing(const OpenServicing&) = delete;
  OpenServicing& operator=(const OpenServicing&) = delete;

 private:
  Journal& journal_;
};

}  // namespace

void JournalScreen::Tell_Cause(std::string_view cause) {
  if (!journal_.Is_Repeating()) journal_.Comment("cause " + One_Line(cause));
  Behind().Tell_Cause(cause);
}

Answer JournalScreen::Message_Box(std::string_view text, Buttons buttons, std::string_view title) {
  OpenDialog dialog(journal_);
  const Answer answer = Behind().Message_Box(text, buttons, title);
  dialog.Answered(DialogKind::Message, Answer_Name(answer));
  return answer;
}

std::optional<std::string> JournalScreen::Input_Box(std::string_view prompt, std::string_view title,
                                                    std::string_view preset) {
  OpenDialog dialog(journal_);
  std::optional<std::string> answer = Behind().Input_Box(prompt, title, preset);
  dialog.Answered(DialogKind::Input, answer);
  return answer;
}

std::optional<std::string> JournalScreen::File_Dialog(const FileQuestion& question) {
  OpenDialog dialog(journal_);
  std::optional<std::string> answer = Behind().File_Dialog(question);
  dialog.Answered(DialogKind::File, answer);
  return answer;
}

void JournalScreen::Service_Events() {
  const OpenServicing servicing(journal_);
  Behind().Service_Events();
}

double JournalScreen::Random() { return Uniform_Of(generator_); }

void JournalScreen::Report_Error(std::string_view command, std::string_view text,
                                 std::string_view native_path) {
  if (!journal_.Is_Repeating()) {
    journal_.Comment("error " + One_Line(command) + " " + Quoted(text));
  }
  Behind().Report_Error(command, text, native_path);
}

void JournalScreen::End_Session() {
  // One that is repeated here was killed after the answer: its session goes on.
  if (!journal_.Is_Repeating()) journal_.Exit();
  Behind().End_Session();
}

}  // namespace sylvomex
