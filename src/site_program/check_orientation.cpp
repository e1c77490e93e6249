// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Check_Orientation(const CheckArguments& /*arguments*/, SiteOutput& /*output*/) {
  throw Refused("check orientation: not built yet");
}

}  // namespace sylvomex
