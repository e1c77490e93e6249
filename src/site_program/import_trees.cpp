// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Import_Trees(const TreesArguments& /*arguments*/, SiteOutput& /*output*/) {
  throw Refused("import trees: not built yet");
}

}  // namespace sylvomex
