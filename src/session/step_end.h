// SPDX-License-Identifier: MIT
// The ways in which a scripted step or session ends early.
//
// They pass through the command that is running at the time. Neither is a std::exception, so
// that the handlers of the commands and of the dispatcher let them by.
#pragma once

#include <string>

namespace sylvomex {

/// Exit statuses of a session.
inline constexpr int kAllStepsDone = 0;
inline constexpr int kStepFailed = 1;
inline constexpr int kCommandError = 2;
inline constexpr int kStartFailed = 3;

/// A step failed or its command ended in an error; `try` takes it.
struct StepEnd {
  int status = kStepFailed;  // kStepFailed or kCommandError
  std::string reason;        // one sentence for standard error
};

/// The session ends here, whatever is running; `try` lets it by. Its reason has been told.
struct SessionEnd {
  int status = kAllStepsDone;
};

}  // namespace sylvomex
