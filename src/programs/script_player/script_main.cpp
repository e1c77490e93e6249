// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <csignal>
#include <iostream>

#include "session/command_line.h"
#include "session/step_end.h"

namespace {

int Play(const sylvomex::SessionOptions& options) {
  if (options.script.empty() && options.resume.empty()) {
    std::cerr << "this build plays scripts only: sylvomex --script FILE\n";
    return sylvomex::kStepFailed;
  }
  if (options.show) {
    std::cerr << "--show needs the desktop\n";
    return sylvomex::kStepFailed;
  }
  const bool is_conversation = options.script == "-" || isatty(STDOUT_FILENO) != 0;
  return sylvomex::Run_Session(options, {std::cin, std::cout, std::cerr, is_conversation});
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is an error like a full disk
  std::signal(SIGPIPE, SIG_IGN);  // so is a transcript that nobody reads any longer
  std::ios::sync_with_stdio(false);
  const auto line = sylvomex::Parse_Command_Line(argc, argv, std::cerr);
  if (!line) return sylvomex::kStepFailed;
  if (line->help) {
    std::cout << sylvomex::kUsage;
    return sylvomex::kAllStepsDone;
  }
  return Play(line->options);
}
