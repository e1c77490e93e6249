// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Import_Chm(const RasterArguments& /*arguments*/, SiteOutput& /*output*/) {
  throw Refused("import chm: not built yet");
}

}  // namespace sylvomex
