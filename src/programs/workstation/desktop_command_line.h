// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <ostream>

#include "session/command_line.h"

namespace sylvomex {

/// The arguments of the desktop program. std::nullopt, with the reason on err, for invalid
/// arguments. Qt's own options (-platform, -style ...) are left to Qt.
std::optional<CommandLine> Parse_Desktop_Command_Line(int argc, char** argv, std::ostream& err);

}  // namespace sylvomex
