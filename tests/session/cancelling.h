// SPDX-License-Identifier: MIT
// A command of a script, cancelled after 0, 1, 2 ... steps of its work: the block prints and the
// files hold what they did before, and the command done again gives what it gives without a
// cancellation before it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "support/session_run.h"

namespace sylvomex {

using Files = std::map<std::string, std::string>;

struct CancelledCommand {
  std::string before;                  // steps that prepare it
  std::string answers;                 // of its dialogs
  std::string step;                    // the event itself
  std::set<std::string> may_change{};  // files by name, or with a star at their end
  std::string later_answers{};         // of dialogs that come after the work
};

inline constexpr const char* kState =
    "say state\nprint Label10\nprint Solution3D\nprint SolutionValid\nprint ImageCount\n"
    "print Text1(0)\nprint Text1(1)\nprint Check1(0)\nprint ImageKinds(0)\nprint ImageKinds(1)\n"
    "print RasterDemLoaded\nprint TinDemLoaded\nprint TinDem.TriangleCount\n"
    "print MeshPoints.Count\nprint ObservationRecord.X\nprint PaneWidth\nprint PaneViews(0)\nmarks "
    "Picture1(0)\nmarks Picture1(1)\n";

inline bool May_Change(const CancelledCommand& command, const std::string& name) {
  for (const std::string& allowed : command.may_change) {
    if (allowed == name) return true;
    if (allowed.ends_with('*') && name.starts_with(allowed.substr(0, allowed.size() - 1))) {
      return true;
    }
  }
  return false;
}

/// All files but the scratch pictures of the panes.
inline Files Files_In(const std::filesystem::path& folder, const CancelledCommand& command) {
  Files files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (!entry.is_regular_file() || name.starts_with("pic") || May_Change(command, name)) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    files[std::filesystem::relative(entry.path(), folder).string()] =
        std::string(std::istreambuf_iterator<char>(file), {});
  }
  return files;
}

/// What kState left, without the seconds that a correlation took.
inline std::string State_Of(const PlayedSession& played) {
  const std::size_t at = played.transcript.rfind("say state\n");
  if (at == std::string::npos) return "no state\n" + played.transcript;
  std::string state = played.transcript.substr(at);
  const std::size_t seconds = state.find(" Seconds cross-corr");
  if (seconds != std::string::npos) {
    const std::size_t number = state.rfind(' ', seconds - 1) + 1;
    state.replace(number, seconds - number, "N");
  }
  return state;
}

inline bool Ended_Before(const PlayedSession& played) {
  return played.reason.find("ended before it was cancelled") != std::string::npos ||
         played.reason.find("found no answer") != std::string::npos;
}

class Cancelling {
 public:
  Cancelling(const TemporaryFolder& folder, CancelledCommand command)
      : folder_(folder), command_(std::move(command)) {
    command_.before += "history on\n";
  }

  void Check() {
    const std::string state = State_Of(Play(kState));
    const Files files = Files_In(folder_.Path(), command_);
    int cancelled = 0;
    for (const long steps : {0, 1, 2, 3, 5, 8, 13, 40, 120, 360, 1000}) {
      const std::string cancel = "cancelled " + std::to_string(steps) + " " + command_.step + "\n";
      const PlayedSession played = Play(command_.answers + cancel + kState);
      if (Ended_Before(played)) break;
      ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
      ++cancelled;
      EXPECT_EQ(State_Of(played), state) << cancel;
      // A run to its end may come below, so files are compared here only.
      EXPECT_TRUE(Files_In(folder_.Path(), command_) == files) << cancel;
    }
    EXPECT_GE(cancelled, 1);
    Check_Repetition();
  }

 private:
  PlayedSession Play(const std::string& script) {
    return Play_Script(folder_, command_.before + script, 1000, 440);
  }

  void Check_Repetition() {
    command_.may_change.clear();
    const std::string whole =
        command_.answers + command_.later_answers + command_.step + "\n" + kState;
    const std::string cancel = command_.answers + "cancelled 0 " + command_.step + "\n";
    const std::string state_after_cancel = State_Of(Play(cancel + whole));
    const Files files_after_cancel = Files_In(folder_.Path(), command_);
    const PlayedSession played = Play(whole);
    ASSERT_EQ(played.status, 0) << played.reason;
    EXPECT_EQ(state_after_cancel, State_Of(played));
    EXPECT_TRUE(files_after_cancel == Files_In(folder_.Path(), command_));
  }

  const TemporaryFolder& folder_;
  CancelledCommand command_;
};

inline void Expect_Cancellable(const TemporaryFolder& folder, CancelledCommand command) {
  Cancelling(folder, std::move(command)).Check();
}

}  // namespace sylvomex
