// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Import_Lidar(const LidarArguments& /*arguments*/, SiteOutput& /*output*/) {
  throw Refused("import lidar: not built yet");
}

}  // namespace sylvomex
