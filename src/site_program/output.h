// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
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
  bool progress = false;
  std::string program = "sylvomex-site";
  nlohmann::ordered_json object = nlohmann::ordered_json::object();

  int told_percent = -1;  // with --progress

  /// For imports that say how far they have come; empty unless --progress asks for it.
  std::function<void(double)> Progress() {
    if (!progress) return {};
    return [this](double share) {
      const int percent = static_cast<int>(100 * share);
      if (percent <= told_percent) return;
      told_percent = percent;
      err << "progress " << percent << '\n' << std::flush;
    };
  }

  /// A result line on standard output, left out with --json.
  void Say(const std::string& line) const {
    if (!json) out << line << '\n';
  }
  /// A message on standard error.
  void Warn(const std::string& line) const { err << program << ": " << line << '\n'; }
};

}  // namespace sylvomex
