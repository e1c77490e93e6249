// SPDX-License-Identifier: MIT
// The dialogs of an event: what was answered in them, and answers that are known before they open.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "session/recorder.h"
#include "state/forwarding_screen.h"

namespace sylvomex {

struct DialogAnswer {
  DialogKind kind = DialogKind::File;
  std::string question;             // prompt, title of the file dialog or text of the message
  std::optional<std::string> text;  // entered or chosen; std::nullopt for dismissed
  Answer button = Answer::Ok;       // of a message

  bool operator==(const DialogAnswer&) const = default;
};

class AnsweringScreen : public ForwardingScreen {
 public:
  using ForwardingScreen::ForwardingScreen;

  /// Begins a new outer event: nothing has been answered, no answer is known.
  void Begin_Outer_Event();

  /// The next dialogs are answered so without being shown, in this order, as long as each asks the
  /// question that its answer belongs to. Another question forgets the answers and is asked. An
  /// answer without a question fits every dialog of its kind.
  void Answer_With(std::vector<DialogAnswer> answers);

  /// Those of the present outer event, in their order, the ones known before too.
  [[nodiscard]] const std::vector<DialogAnswer>& Given() const { return given_; }

  Answer Message_Box(std::string_view text, Buttons buttons, std::string_view title) override;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title,
                                       std::string_view preset) override;
  std::optional<std::string> File_Dialog(const FileQuestion& question) override;

 private:
  std::optional<DialogAnswer> Known(DialogKind kind, std::string_view question);
  void Note(DialogAnswer answer);

  std::deque<DialogAnswer> known_;
  std::vector<DialogAnswer> given_;
};

}  // namespace sylvomex
