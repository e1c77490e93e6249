// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Import_Tin(const RasterArguments& /*arguments*/, SiteOutput& /*output*/) {
  throw Refused("import tin: not built yet");
}

}  // namespace sylvomex
