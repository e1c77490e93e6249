// SPDX-License-Identifier: MIT
// A scripted session from start to exit.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <ostream>
#include <string>

#include "session/event_path.h"
#include "session/window_pictures.h"

namespace sylvomex {

struct Workspace;

struct SessionOptions {
  std::string script;          // file name, or "-" for the input stream
  std::filesystem::path root;  // folder that holds the drives
  double width = 1280;         // client size of the main window, pixels
  double height = 1024;
  bool show = false;    // show the windows while the script plays
  double pace = 0;      // seconds that each step stays before the next one, while they are shown
  std::string record;   // script file for recording the session; empty for none
  std::string journal;  // file of the journal of the session; empty for none
  std::string resume;   // journal of a session that is repeated first and goes on; empty for none
};

struct SessionStreams {
  std::istream& in;          // the script, if it is "-"
  std::ostream& out;         // the transcript
  std::ostream& err;         // error messages of steps and of the program itself
  bool flush_steps = false;  // flush the transcript after every step
};

/// What a desktop adds to a session; every member may be empty.
struct SessionHooks {
  WindowPictures* pictures = nullptr;
  std::function<void(Workspace&)> before_start;  // when the block exists, before the start
  std::function<void(Workspace&)> show;          // called after every step and event servicing
  std::function<void()> pause;                   // called between two steps
};

/// Plays a script. Returns the exit status: 0 all steps done, 1 a step failed, 2 a command
/// ended in an error, 3 the start-up failed, 4 all steps done, but the transcript or the record
/// could not be written in full.
int Run_Session(const SessionOptions& options, const SessionStreams& streams,
                const SessionHooks& hooks = {});

/// Plays a script on a running block: its dialogs take their answers from the script, and
/// afterwards the block uses its own screen again. False, with the reason on err, when the script
/// cannot be read or a step failed.
bool Play_Over_Block(Workspace& w, const std::filesystem::path& script, std::ostream& transcript,
                     std::ostream& err, const EventPath& path);

}  // namespace sylvomex
