// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Import_Images(const ImagesArguments& /*arguments*/, SiteOutput& /*output*/) {
  throw Refused("import images: not built yet");
}

}  // namespace sylvomex
