// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Export(const ExportArguments& /*arguments*/, SiteOutput& /*output*/) {
  throw Refused("export: not built yet");
}

}  // namespace sylvomex
