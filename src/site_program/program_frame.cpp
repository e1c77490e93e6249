// SPDX-License-Identifier: MIT
#include "site_program/program_frame.h"

#include <algorithm>
#include <new>
#include <sstream>

#include "interchange/failures.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

int Say_Failure(SiteOutput& output, int status, const std::string& message) {
  output.Warn(message);
  output.object["error"] = message;
  return status;
}

bool Is_Writing_Failure(const RunTimeError& error) {
  return error.Kind() == Failure::DiskFull || error.Kind() == Failure::OutOfMemory ||
         error.Kind() == Failure::PermissionDenied;
}

int Run_Task(const ProgramTask& task, SiteOutput& output) try {
  const int status = task(output);
  if (const auto told = output.Progress(); told && status == kDone) told(1);
  return status;
} catch (const Refused& refusal) {
  return Say_Failure(output, kRefused, refusal.what());
} catch (const FailedOnTheWay& failure) {
  return Say_Failure(output, kFailedOnTheWay, failure.what());
} catch (const RunTimeError& error) {
  return Say_Failure(output, Is_Writing_Failure(error) ? kFailedOnTheWay : kRefused, error.what());
} catch (const std::bad_alloc&) {
  return Say_Failure(output, kFailedOnTheWay, "not enough memory");
} catch (const std::exception& error) {
  return Say_Failure(output, kFailedOnTheWay, error.what());
}

void Add_To_Footers(CLI::App& app, const std::string& text) {
  app.footer(app.get_footer() + text);
  for (CLI::App* const subcommand : app.get_subcommands({})) Add_To_Footers(*subcommand, text);
}

}  // namespace

int Run_Program(CLI::App& app, std::vector<std::string> words, const ProgramTask& task,
                SiteOutput& output) {
  output.json = std::erase(words, "--json") > 0;
  Add_To_Footers(app, "--json may stand anywhere and writes one JSON object on standard output.");
  int status = kDone;
  try {
    std::reverse(words.begin(), words.end());  // as CLI11 takes them
    app.parse(words);
    status = Run_Task(task, output);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
      std::ostringstream help;
      app.exit(error, help, help);
      if (!output.json) output.out << help.str();
      output.object["help"] = help.str();
    } else {
      app.exit(error, output.err, output.err);
      output.object["error"] = error.what();
      status = kWrongCommandLine;
    }
  }
  if (output.json) {
    output.out << output.object.dump(2, ' ', false,
                                     nlohmann::ordered_json::error_handler_t::replace)
               << '\n';
  }
  return status;
}

}  // namespace sylvomex
