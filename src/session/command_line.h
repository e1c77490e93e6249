// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "session/session.h"

namespace sylvomex {

struct CommandLine {
  SessionOptions options;  // script is empty when none was given
  bool size_given = false;
  std::string begin;   // script that the desktop plays before the operator takes over
  bool plain = false;  // the desktop without its aids; a script is always played without them
  bool help = false;
};

/// $SYLVOMEX_ROOT, or else ~/sylvomex.
std::filesystem::path Default_Root();

/// Parses "1280x1024" into the options; false, with the reason on err, for anything else.
bool Take_Size(CommandLine& line, std::string_view text, std::ostream& err);

/// Parses a number of seconds up to an hour into the options; false, with the reason on err, for
/// anything else.
bool Take_Pace(CommandLine& line, std::string_view text, std::ostream& err);

/// Parses the program's arguments. std::nullopt, with the reason on err, for invalid ones. Without
/// --root the drives lie under $SYLVOMEX_ROOT, or else under ~/sylvomex.
std::optional<CommandLine> Parse_Command_Line(int argc, char** argv, std::ostream& err);

extern const char* const kUsage;

}  // namespace sylvomex
