// SPDX-License-Identifier: MIT
#pragma once

#include <sstream>
#include <string>

#include "session/session.h"
#include "support/small_site.h"
#include "support/temporary_folder.h"

namespace sylvomex {

/// Sessions that are played one after the other on a site, and a folder for their journal.
struct PlayedJournal {
  SmallSite site;
  TemporaryFolder folder;
  SessionOptions options;
  std::string transcript, told;  // of the last session: standard output and standard error

  PlayedJournal() {
    options.script = "-";
    options.root = site.Folder().Path();
  }

  /// Returns the status of the session's end.
  int Play(const std::string& script) {
    std::istringstream in(script);
    std::ostringstream out, err;
    const int status = Run_Session(options, {in, out, err});
    transcript = out.str();
    told = err.str();
    return status;
  }
};

}  // namespace sylvomex
