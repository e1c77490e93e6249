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
  SessionOptions options;  // script is empty when none was asked for
  bool size_given = false;
  std::string begin;  // script that the desktop plays before the hand takes over
  bool help = false;
};

/// $SYLVOMEX_ROOT, else ~/sylvomex.
std::filesystem::path Default_Root();

/// "1280x1024" into the options; false, with the reason on err, for anything else.
bool Take_Size(CommandLine& line, std::string_view text, std::ostream& err);

/// The arguments of the program. Nothing, with the reason on err, for arguments that do not
/// fit. Without --root the drives lie under $SYLVOMEX_ROOT, else under ~/sylvomex.
std::optional<CommandLine> Parse_Command_Line(int argc, char** argv, std::ostream& err);

extern const char* const kUsage;

}  // namespace sylvomex
