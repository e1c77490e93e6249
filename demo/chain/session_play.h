// SPDX-License-Identifier: MIT
// A scripted session played in this process, with a look at the block after its steps.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <ostream>

#include "session/script_reader.h"
#include "state/workspace.h"

namespace sylvomex::demo {

struct SessionWatch {
  /// After a step that was played to its end, with the seconds that it took; may be empty.
  std::function<void(const ScriptStep& step, double seconds, const Workspace& w)> after_step;
  /// At the end of every event servicing, inside a command; may be empty.
  std::function<void(const Workspace& w)> after_servicing;
};

/// Plays the script over a new block on the drives below the root. name: of the script, in
/// messages. False when a step failed; why goes to err. RunTimeError when the start-up fails.
bool Play_Watched_Session(const std::filesystem::path& root, std::istream& script,
                          const std::string& name, std::ostream& transcript, std::ostream& err,
                          const SessionWatch& watch);

}  // namespace sylvomex::demo
