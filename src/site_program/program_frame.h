// SPDX-License-Identifier: MIT
// What the programs of a site share: a command line of subcommands, "--json", and how a failure is
// told.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "site_program/output.h"

namespace sylvomex {

/// What the command line asks for; returns the exit status.
using ProgramTask = std::function<int(SiteOutput&)>;

/// Makes a subcommand set the task to run(*arguments).
template <class Arguments>
void Run_With(CLI::App* command, ProgramTask& task, int (*run)(const Arguments&, SiteOutput&),
              const std::shared_ptr<Arguments>& arguments) {
  command->callback([&task, run, arguments] {
    task = [run, arguments](SiteOutput& output) { return run(*arguments, output); };
  });
}

/// Parses the words (without the program's name) and runs the task that they set. Refused,
/// FailedOnTheWay and other failures become a message and an exit status.
int Run_Program(CLI::App& app, std::vector<std::string> words, const ProgramTask& task,
                SiteOutput& output);

}  // namespace sylvomex
