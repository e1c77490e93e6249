// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

namespace sylvomex {

/// Exit status of the program.
enum SiteStatus { kDone = 0, kRefused = 1, kWrongCommandLine = 2, kFailedOnTheWay = 3 };

/// Where a subcommand says what it did. With --json standard output gets `object` alone, at the
/// end.
struct SiteOutput {
  std::ostream& out;
  std::ostream& err;
  bool json = false;
  std::string program = "sylvomex-site";
  nlohmann::ordered_json object = nlohmann::ordered_json::object();

  /// A result line on standard output, left out with --json.
  void Say(const std::string& line) const {
    if (!json) out << line << '\n';
  }
  /// A message on standard error.
  void Warn(const std::string& line) const { err << program << ": " << line << '\n'; }
};

}  // namespace sylvomex
