// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <ostream>

#include "session/session.h"

namespace sylvomex {

struct CommandLine {
  SessionOptions options;  // script is empty when none was asked for
  bool help = false;
};

/// The arguments of the program. Nothing, with the reason on err, for arguments that do not
/// fit. Without --root the drives lie under $SYLVOMEX_ROOT, else under ~/sylvomex.
std::optional<CommandLine> Parse_Command_Line(int argc, char** argv, std::ostream& err);

extern const char* const kUsage;

}  // namespace sylvomex
