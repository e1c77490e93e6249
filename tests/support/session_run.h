// SPDX-License-Identifier: MIT
// Plays a script on a site and keeps its output.
#pragma once

#include <sstream>
#include <string>

#include "session/session.h"
#include "support/temporary_folder.h"

namespace sylvomex {

struct PlayedSession {
  int status = -1;
  std::string transcript;
  std::string reason;  // the output on the error stream
};

inline PlayedSession Play_Script(const TemporaryFolder& site, const std::string& script,
                                 double width = 1280, double height = 1024) {
  std::istringstream in(script);
  std::ostringstream out;
  std::ostringstream err;
  SessionOptions options;
  options.script = "-";
  options.root = site.Path();
  options.width = width;
  options.height = height;
  PlayedSession played;
  played.status = Run_Session(options, {in, out, err});
  played.transcript = out.str();
  played.reason = err.str();
  return played;
}

}  // namespace sylvomex
