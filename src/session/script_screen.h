// SPDX-License-Identifier: MIT
// Screen of a scripted session: dialogs take their answers from a queue, and all output to the
// operator becomes lines of the transcript.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "session/script_reader.h"
#include "session/step_end.h"
#include "state/screen.h"

namespace sylvomex {

inline constexpr std::uint32_t kRandomSeed = 20041105;

/// A uniform random number in [0, 1).
double Uniform_Of(std::mt19937& generator);

/// An answer queued for a dialog.
struct QueuedAnswer {
  enum class Kind {
    Input,   // of an input box
    File,    // of a file dialog, a drive name or a native path
    Button,  // of a message box with a choice: ok, cancel, yes, no
    Cancel,  // dismisses an input box or a file dialog
  };
  Kind kind = Kind::Input;
  std::string text;  // as given; empty for Kind::Cancel
};

/// Gives the answers and the steps of a dialog or an event servicing when it begins.
class ScreenFeed {
 public:
  virtual ~ScreenFeed() = default;

  /// A dialog opens that takes an answer of that kind; a message box with OK alone takes none from
  /// the queue.
  virtual void Dialog_Opens(QueuedAnswer::Kind wanted, Buttons buttons) = 0;

  /// Events are serviced.
  virtual void Servicing_Begins() = 0;
};

class ScriptScreen : public Screen {
 public:
  /// transcript: receives the lines. log: receives diagnostics only.
  ScriptScreen(std::ostream& transcript, std::ostream& log);

  /// Queues the answer for the next dialog of its kind.
  void Queue_Answer(QueuedAnswer answer) { answers_.push_back(std::move(answer)); }
  [[nodiscard]] std::size_t Answers_Left() const { return answers_.size(); }

  /// Queues a step for the n-th event servicing from now; n counts from 1.
  void Queue_Step(long n, ScriptStep step);
  [[nodiscard]] std::size_t Steps_Left() const { return waiting_steps_.size(); }

  /// Sets the function that plays a queued step at its servicing.
  void Play_Queued_Steps_By(std::function<void(const ScriptStep&)> play);

  /// Sets a function called at the end of every event servicing; may be empty.
  void After_Servicing(std::function<void()> show) { after_servicing_ = std::move(show); }

  /// Sets what feeds the dialogs and servicings as they begin; nullptr for nothing.
  void Feed_By(ScreenFeed* feed) { feed_ = feed; }

  /// Begins the random numbers anew.
  void Seed_Random(std::uint32_t seed) { generator_.seed(seed); }

  /// A dialog without a queued answer throws StepEnd. If the running command swallowed that
  /// exception, the failure is still available here.
  [[nodiscard]] const std::optional<StepEnd>& Failure_Of_Dialog() const { return failure_; }
  void Drop_Failure() { failure_.reset(); }

  /// True after the operator has confirmed the exit.
  [[nodiscard]] bool Ended() const { return ended_; }
  void Go_On() { ended_ = false; }

  /// Writes one line of the transcript.
  void Write_Line(std::string_view line);

  void Tell_Cause(std::string_view cause) override;
  Answer Message_Box(std::string_view text, Buttons buttons, std::string_view title) override;
  std::optional<std::string> Input_Box(std::string_view prompt, std::string_view title,
                                       std::string_view preset) override;
  std::optional<std::string> File_Dialog(const FileQuestion& question) override;
  void Beep(int frequency, int duration) override;
  void Clear_Clipboard() override {}
  void Copy_To_Clipboard(const PaneBitmap& picture) override;
  void Service_Events() override;
  double Clock() override;
  double Random() override;
  void Report_Error(std::string_view command, std::string_view text,
                    std::string_view native_path) override;
  void End_Session() override { ended_ = true; }

 private:
  struct WaitingStep {
    long servicing = 0;
    ScriptStep step;
  };

  QueuedAnswer Take_Answer(QueuedAnswer::Kind wanted, const std::string& dialog);
  std::optional<std::string> Take_Text(QueuedAnswer::Kind wanted, const std::string& dialog);
  [[noreturn]] void Fail(std::string reason);
  std::optional<ScriptStep> Take_Step(long servicing);

  std::ostream& transcript_;
  std::ostream& log_;
  std::deque<QueuedAnswer> answers_;
  std::vector<WaitingStep> waiting_steps_;
  std::function<void(const ScriptStep&)> play_;
  std::function<void()> after_servicing_;
  ScreenFeed* feed_ = nullptr;
  std::optional<StepEnd> failure_;
  long servicings_ = 0;
  bool ended_ = false;
  std::mt19937 generator_{kRandomSeed};  // the same numbers in every session
};

}  // namespace sylvomex
