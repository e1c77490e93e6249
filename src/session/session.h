// SPDX-License-Identifier: MIT
// A scripted session from start to exit.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <ostream>
#include <string>

#include "session/recorder.h"
#include "session/window_pictures.h"

namespace sylvomex {

struct Workspace;

struct SessionOptions {
  std::string script;          // file, "-" for the input stream
  std::filesystem::path root;  // folder that holds the drives
  double width = 1280;         // client size of the main window, pixels
  double height = 1024;
  bool show = false;   // show the windows while the script plays
  std::string record;  // file for what was done, as a script; empty for none
};

struct SessionStreams {
  std::istream& in;          // the script, when it is "-"
  std::ostream& out;         // the transcript
  std::ostream& err;         // why a step failed, and other lines of the program itself
  bool flush_steps = false;  // flush the transcript after every step
};

/// What a desktop adds to a session; all of it may be missing.
struct SessionHooks {
  WindowPictures* pictures = nullptr;
  std::function<void(Workspace&)> before_start;  // the block exists, nothing has run yet
  std::function<void(Workspace&)> show;          // after every step and event servicing
};

/// Plays a script. Returns the exit status: 0 all steps done, 1 a step failed, 2 a command
/// ended in an error, 3 the start-up failed.
int Run_Session(const SessionOptions& options, const SessionStreams& streams,
                const SessionHooks& hooks = {});

/// Plays a script over a block that is running already: its dialogs take their answers from the
/// script, and the block asks its own screen again afterwards. False, with the reason on err,
/// when the script cannot be read or a step failed. recorder: takes what is done; may be null.
bool Play_Over_Block(Workspace& w, const std::filesystem::path& script, std::ostream& transcript,
                     std::ostream& err, Recorder* recorder = nullptr);

}  // namespace sylvomex
