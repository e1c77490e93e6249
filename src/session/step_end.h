// SPDX-License-Identifier: MIT
// Exceptions that end a scripted step or session early.
//
// They propagate through the running command. Neither is a std::exception, so the handlers of the
// commands and of the dispatcher do not catch them.
#pragma once

#include <string>

namespace sylvomex {

/// Exit statuses of a session.
inline constexpr int kAllStepsDone = 0;
inline constexpr int kStepFailed = 1;
inline constexpr int kCommandError = 2;
inline constexpr int kStartFailed = 3;
inline constexpr int kOutputLost = 4;

/// A step failed or its command ended in an error; the step `try` catches it.
struct StepEnd {
  int status = kStepFailed;  // kStepFailed or kCommandError
  std::string reason;        // one sentence for standard error
};

/// The session ends here, whatever is running; `try` does not catch it. Its reason has been
/// reported.
struct SessionEnd {
  int status = kAllStepsDone;
};

}  // namespace sylvomex
